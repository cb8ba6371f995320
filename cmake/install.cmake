# The component `development`: the library, its headers and its CMake package.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
install(TARGETS registry_docs EXPORT registry_docs_targets)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/registry_docs
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/registry_docs)
install(EXPORT registry_docs_targets
        FILE registry_docs-targets.cmake NAMESPACE registry_docs:: DESTINATION ${package_dir})
write_basic_package_version_file(registry_docs-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/registry_docs-config.cmake
              ${PROJECT_BINARY_DIR}/registry_docs-config-version.cmake
        DESTINATION ${package_dir})

# The component `program`: the program, its manual page, its completions, and the schemas of what
# it reads and prints.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)
install(TARGETS gen_registry_docs)
install(FILES ${PROJECT_BINARY_DIR}/gen_registry_docs DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/man/registry-docs.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/docs/registry.schema.json
              ${PROJECT_SOURCE_DIR}/docs/output.schema.json
        DESTINATION ${CMAKE_INSTALL_DATADIR}/registry_docs)
set(completions ${PROJECT_SOURCE_DIR}/completions)
install(FILES ${completions}/registry-docs.bash RENAME registry-docs
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${completions}/_registry-docs
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES ${completions}/registry-docs.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
