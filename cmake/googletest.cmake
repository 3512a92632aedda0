# Provides the test library as GTest::gtest and GTest::gtest_main: the installed one, or one built
# from the sources in Debian's package, because Debian has none for Windows.
find_package(GTest QUIET)
set(PELK_GOOGLETEST /usr/src/googletest CACHE PATH
  "The sources of googletest, for where none is installed")
if(NOT TARGET GTest::gtest AND EXISTS ${PELK_GOOGLETEST}/CMakeLists.txt)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${PELK_GOOGLETEST} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
