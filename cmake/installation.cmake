# What `cmake --install` puts where, beside the reference host and its data, which their
# own folders install. Three components, as they are packaged: runtime, development, host.
include(CMakePackageConfigHelpers)
set(ONU_ABILITY_CMAKE_PACKAGE ${CMAKE_INSTALL_LIBDIR}/cmake/onu_ability_common)

install(TARGETS onu_ability_common onu_ability_common_static EXPORT onu_ability_common
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/onu_ability_common)

install(DIRECTORY src/platform/ src/onu_ability_common/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/onu_ability_common COMPONENT development
  FILES_MATCHING PATTERN "*.h"
  # What only the library's own sources include.
  PATTERN "log.h" EXCLUDE PATTERN "short_ways.h" EXCLUDE PATTERN "ability_name.h" EXCLUDE
  PATTERN "*_index.h" EXCLUDE PATTERN "table_lock.h" EXCLUDE
  PATTERN "name_text.h" EXCLUDE PATTERN "common_types.h" EXCLUDE PATTERN "registered_codes.h" EXCLUDE
  PATTERN "command_arguments.h" EXCLUDE PATTERN "ability_entry.h" EXCLUDE PATTERN "source_filter.h" EXCLUDE
  PATTERN "onu_ability_common_service_cli" EXCLUDE)

# find_package(onu_ability_common 1)
install(EXPORT onu_ability_common NAMESPACE onu_ability_common::
  FILE onu_ability_common-targets.cmake
  DESTINATION ${ONU_ABILITY_CMAKE_PACKAGE} COMPONENT development)
configure_package_config_file(cmake/package/onu_ability_common-config.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/onu_ability_common-config.cmake
  INSTALL_DESTINATION ${ONU_ABILITY_CMAKE_PACKAGE} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/onu_ability_common-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/onu_ability_common-config.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/onu_ability_common-config-version.cmake
  DESTINATION ${ONU_ABILITY_CMAKE_PACKAGE} COMPONENT development)

# pkg-config onu_ability_common; for the static library, the C++ runtime that this compiler
# links by itself and a C compiler does not.
set(PC_LIBS_PRIVATE "")
foreach(library IN LISTS CMAKE_CXX_IMPLICIT_LINK_LIBRARIES)
  if(library MATCHES "^(stdc\\+\\+|c\\+\\+|c\\+\\+abi|m)$")
    string(APPEND PC_LIBS_PRIVATE " -l${library}")
  endif()
endforeach()
string(APPEND PC_LIBS_PRIVATE " -pthread")
configure_file(cmake/package/write_pkg_config.cmake.in write_pkg_config.cmake @ONLY)
install(SCRIPT ${CMAKE_CURRENT_BINARY_DIR}/write_pkg_config.cmake COMPONENT development)

# Documents and the examples, which are there to be copied, beside each other as in the tree.
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "man" EXCLUDE)
install(FILES data/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/data COMPONENT development)
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
  FILES_MATCHING PATTERN "*.c" PATTERN "*.cpp" PATTERN "*.h" PATTERN "*.txt" PATTERN "Makefile"
  PATTERN "build*" EXCLUDE)

# Manual pages, each into the section that its name ends with; the third is for programmers.
file(GLOB ONU_ABILITY_MANUAL_PAGES CONFIGURE_DEPENDS docs/man/*.[1-8])
foreach(page IN LISTS ONU_ABILITY_MANUAL_PAGES)
  cmake_path(GET page EXTENSION LAST_ONLY section)
  string(REPLACE "." "man" section ${section})
  if(section STREQUAL man3)
    set(component development)
  else()
    set(component host)
  endif()
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/${section} COMPONENT ${component})
endforeach()
