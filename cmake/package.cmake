# What `cpack` makes of the component `program`: a Debian package, and an archive that runs
# from wherever it is unpacked. Only of the static program, which needs no other package.
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/registry-docs)

set(CPACK_PACKAGE_NAME registry-docs)
set(CPACK_PACKAGE_CONTACT "registry_docs maintainers <maintainers@registry-docs.invalid>")
set(CPACK_PACKAGE_DESCRIPTION "\
Every list of a tool server's tools, in READMEs, references and agent skills,
stands in a block between two markers, and is made from the one registry that
declares the tools. This program names the files whose lists have drifted from
the registry, and rewrites only those.")
string(TOLOWER ${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR} system)
set(CPACK_PACKAGE_FILE_NAME registry-docs-${PROJECT_VERSION}-${system})
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_CMAKE_PROJECTS ${PROJECT_BINARY_DIR} ${PROJECT_NAME} program /)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/package_files.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
if(CMAKE_CROSSCOMPILING)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)  # else that of this machine
endif()
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
include(CPack)
