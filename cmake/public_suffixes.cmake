# Makes the table of views/registered_domain.cpp from the public suffix list, so that programs for
# both platforms contain it.
set(PELK_PUBLIC_SUFFIX_LIST /usr/share/publicsuffix/public_suffix_list.dat CACHE FILEPATH
  "The public suffix list")
if(NOT EXISTS ${PELK_PUBLIC_SUFFIX_LIST})
  message(FATAL_ERROR "There is no ${PELK_PUBLIC_SUFFIX_LIST}. On Debian it is in the package "
    "publicsuffix.")
endif()
set(table ${PROJECT_BINARY_DIR}/generated/views/public_suffixes.h)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/generated/views)
add_custom_command(OUTPUT ${table}
  COMMAND ${PROJECT_SOURCE_DIR}/views/make-public-suffixes ${PELK_PUBLIC_SUFFIX_LIST} ${table}
  DEPENDS ${PELK_PUBLIC_SUFFIX_LIST} ${PROJECT_SOURCE_DIR}/views/make-public-suffixes VERBATIM)
target_sources(pelk_views PRIVATE ${table})
target_include_directories(pelk_views PRIVATE ${PROJECT_BINARY_DIR}/generated)
