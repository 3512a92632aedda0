# The library of the tests as GTest::gtest and GTest::gtest_main: an installed one, or else built from
# the sources that Debian's package ships, as there is none for Windows there.
find_package(GTest QUIET)
set(PELK_GOOGLETEST /usr/src/googletest CACHE PATH
  "The sources of googletest, for where none is installed")
if(NOT TARGET GTest::gtest AND EXISTS ${PELK_GOOGLETEST}/CMakeLists.txt)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${PELK_GOOGLETEST} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
