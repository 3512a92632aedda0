# The installation on a desktop, its Debian package, and the target that builds everything in the
# packages.

add_custom_target(packaged ALL)
foreach(part pelk pelk_dll pelk_help)
  if(TARGET ${part})
    add_dependencies(packaged ${part})
  endif()
endforeach()

if(WIN32)
  if(TARGET pelk_test_support)
    add_subdirectory(tests/packaging)
  endif()
  return()
endif()

# The first heading of the change log is the release with its date.
set(log ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${log})
file(STRINGS ${log} head REGEX "^## " LIMIT_COUNT 1)
if(NOT head MATCHES "^## ([0-9.]+) \\(([0-9]+-[0-9]+-[0-9]+)\\)$" OR
   NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "The head of CHANGELOG.md must be \"## ${PROJECT_VERSION} (YEAR-MONTH-DAY)\", "
    "it is \"${head}\".")
endif()
set(PELK_RELEASE_DATE ${CMAKE_MATCH_2})
include(cmake/mail_date.cmake)
pelk_mail_date(PELK_RELEASE_TIME ${PELK_RELEASE_DATE})
set(sources ${PROJECT_SOURCE_DIR}/packaging/linux)
set(made ${PROJECT_BINARY_DIR}/packaging)

# pelk_compressed(OUTPUT INPUT): creates OUTPUT.gz without a name and time inside.
function(pelk_compressed output input)
  add_custom_command(OUTPUT ${made}/${output}.gz DEPENDS ${input} VERBATIM
    COMMAND sh -c "gzip -9 -n <\"$1\" >\"$2\"" sh ${input} ${made}/${output}.gz)
  set_property(TARGET packaged APPEND PROPERTY SOURCES ${made}/${output}.gz)
endfunction()

foreach(file pelk.1 changelog.Debian pelk.metainfo.xml)
  configure_file(${sources}/${file}.in ${made}/${file} @ONLY)
endforeach()
pelk_compressed(pelk.1 ${made}/pelk.1)
pelk_compressed(changelog.Debian ${made}/changelog.Debian)
pelk_compressed(changelog ${log})

include(GNUInstallDirs)
install(TARGETS pelk)
install(FILES ${made}/pelk.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# The mail that the first page offers to look at.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/mail
  DESTINATION ${CMAKE_INSTALL_DATADIR}/pelk/examples PATTERN .gitkeep EXCLUDE)
install(FILES ${sources}/pelk.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${made}/pelk.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${sources}/pelk.bash-completion RENAME pelk
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/icons/pelk.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/icons/pelk-small.svg RENAME pelk.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/16x16/apps)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE RENAME copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${made}/changelog.gz ${made}/changelog.Debian.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_BINARY_DIR}/share/help DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ
  GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Pelk authors <pelk@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "shows who is connected to whom by e-mail")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Pelk reads your mail, counts the e-mails between each pair of people, and
shows your contacts as a tree in which every relation has the colour of its
strength. It finds over whom two people are linked, lists contacts by their
domains, and merges the several addresses of one person.
.
It reads mbox files, Maildir folders, message files and the mail of
Thunderbird, Evolution, KMail, Geary and Apple Mail.
Mail is only ever read, and everything that is counted stays on this machine.")
set(CPACK_DEBIAN_PACKAGE_NAME pelk)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION mail)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Qt loads its platform plug-in at run time.
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-qpa-plugins)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
# Names of people in Chinese, Japanese and Korean letters.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-noto-cjk)
execute_process(COMMAND dpkg --print-architecture OUTPUT_VARIABLE architecture
  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
set(CPACK_DEBIAN_FILE_NAME pelk_${PROJECT_VERSION}_${architecture}.deb)
include(CPack)
