include(CMakeFindDependencyMacro)
find_dependency(PkgConfig)
pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
include(${CMAKE_CURRENT_LIST_DIR}/registry_docs-targets.cmake)
