# For the 32-bit mail client, which loads 32-bit add-ins only.
set(PELK_WINDOWS_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
# SSE2 gives the same sums and thresholds as elsewhere; the x87 unit would compute extra digits.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine32.sh)
