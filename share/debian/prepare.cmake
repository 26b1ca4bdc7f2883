# What cpack has installed gets modes that do not depend on the umask, and for Debian what its policy asks for.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(doc ${share}/doc/kelvra)
if(CPACK_GENERATOR STREQUAL "DEB")
  file(RENAME ${share}/zsh/site-functions ${share}/zsh/vendor-completions)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${doc})
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/lintian DESTINATION ${share})
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  file(WRITE ${doc}/changelog "kelvra (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n"
    "  * See CHANGELOG.md.\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  file(GLOB plain ${share}/man/*/* ${doc}/changelog)
  execute_process(COMMAND gzip -9n ${plain} COMMAND_ERROR_IS_FATAL ANY)
endif()
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
