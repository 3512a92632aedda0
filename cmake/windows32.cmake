# For the 32-bit mail client, which loads 32-bit add-ins only.
set(PELK_WINDOWS_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/windows.cmake)
# Sums and thresholds must come out as they do elsewhere, without the old unit's extra digits.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine32.sh)
