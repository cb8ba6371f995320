# Run by cpack before it packs CPACK_TEMPORARY_DIRECTORY: puts the files of the Debian package
# where Debian wants them, and adds those that the archive does not have.
if(NOT CPACK_GENERATOR STREQUAL DEB)
  return()
endif()
set(sources ${CMAKE_CURRENT_LIST_DIR}/..)
set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)

# The newest part of CHANGELOG.md in the form of a Debian changelog.
function(write_changelog file)
  file(READ ${sources}/CHANGELOG.md text)
  string(REGEX REPLACE "^# Changelog\n\n## [^\n]*\n" "" text "${text}")
  string(REGEX REPLACE "\n\n## .*" "" text "${text}")
  string(REGEX REPLACE "\n+$" "" text "${text}")
  string(REGEX REPLACE "\n" "\n  " text "${text}")
  string(REGEX REPLACE "\n  - " "\n  * " text "${text}")
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  file(WRITE ${file} "\
${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}) UNRELEASED; urgency=medium
${text}

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
endfunction()

write_changelog(${share}/doc/registry-docs/changelog)
execute_process(COMMAND gzip -9 --no-name ${share}/man/man1/registry-docs.1
                        ${share}/doc/registry-docs/changelog
                COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${share}/zsh/site-functions ${share}/zsh/vendor-completions)
file(CREATE_LINK registry-docs.1.gz ${share}/man/man1/gen_registry_docs.1.gz SYMBOLIC)
configure_file(${sources}/packaging/registry-docs.lintian-overrides
               ${share}/lintian/overrides/registry-docs COPYONLY)
