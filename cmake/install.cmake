# The library, its headers and its CMake package, and the program.
install(TARGETS registry_docs EXPORT registry_docs_targets)
install(TARGETS gen_registry_docs)
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
