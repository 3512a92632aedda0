# Cross-compiles for Windows with MinGW-w64, 64-bit where nothing else is said; programs run under
# Wine.
if(NOT DEFINED PELK_WINDOWS_PROCESSOR)
  set(PELK_WINDOWS_PROCESSOR x86_64)
endif()
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${PELK_WINDOWS_PROCESSOR})
set(CMAKE_C_COMPILER ${PELK_WINDOWS_PROCESSOR}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${PELK_WINDOWS_PROCESSOR}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${PELK_WINDOWS_PROCESSOR}-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${PELK_WINDOWS_PROCESSOR}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Nothing but the system's own libraries is loaded at run time.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++ -Wl,--enable-stdcall-fixup")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh)
