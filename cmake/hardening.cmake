# Makes memory errors harder to exploit in all targets that link pelk_options, as far as the
# compiler and linker support it. tests/packaging/hardening_checks.sh checks the results.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)

# pelk_harden_compile(FLAG...): adds each flag that the compiler supports.
function(pelk_harden_compile)
  foreach(flag ${ARGN})
    string(MAKE_C_IDENTIFIER "PELK_HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
      target_compile_options(pelk_options INTERFACE ${flag})
    endif()
  endforeach()
endfunction()

# pelk_harden_link(FLAG...): adds each flag that the linker supports.
function(pelk_harden_link)
  foreach(flag ${ARGN})
    string(MAKE_C_IDENTIFIER "PELK_HAS${flag}" known)
    check_linker_flag(CXX ${flag} ${known})
    if(${known})
      target_link_options(pelk_options INTERFACE ${flag})
    endif()
  endforeach()
endfunction()

# MinGW's stack protector is in a library, which -static links into the program.
pelk_harden_compile(-fstack-protector-strong)

if(WIN32)
  # MinGW probes each page of a large frame anyway.
  pelk_harden_link(-fstack-protector-strong -Wl,--dynamicbase -Wl,--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    pelk_harden_link(-Wl,--high-entropy-va)
  endif()
else()
  pelk_harden_compile(-fstack-clash-protection -fcf-protection)
  pelk_harden_link(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
  # Targets that are shared libraries override this with position-independent code.
  target_compile_options(pelk_options INTERFACE
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:POSITION_INDEPENDENT_CODE>>>:-fPIE>)
  target_link_options(pelk_options INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
endif()

# _FORTIFY_SOURCE has no effect without optimization and hides faults from the sanitizers. A level
# set by the packager or the compiler stays.
check_cxx_source_compiles("
#ifdef _FORTIFY_SOURCE
#error already set
#endif
int main() {}" PELK_FORTIFIES)
if(PELK_FORTIFIES AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  target_compile_definitions(pelk_options INTERFACE
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:_FORTIFY_SOURCE=3>)
endif()
