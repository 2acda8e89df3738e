# What is installed beside the programs, and the two packages of it: tallyfold, the window, and
# tallyfold-console. `cpack -G DEB` in a release build makes both.

set(TALLYFOLD_ID org.tallyfold.Tallyfold)
set(TALLYFOLD_SCREENSHOT_ADDRESS "" CACHE STRING
  "Where software centres find the pictures of docs/; empty names none")
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)

set(TALLYFOLD_SCREENSHOTS "")
if(TALLYFOLD_SCREENSHOT_ADDRESS)
  set(TALLYFOLD_SCREENSHOTS "  <screenshots>
    <screenshot type=\"default\">
      <caption>The register of an account</caption>
      <image>${TALLYFOLD_SCREENSHOT_ADDRESS}/window-entries.png</image>
    </screenshot>
    <screenshot>
      <caption>Reconciling with the bank's statement</caption>
      <image>${TALLYFOLD_SCREENSHOT_ADDRESS}/window-reconcile.png</image>
    </screenshot>
  </screenshots>
")
endif()

if(TARGET tallyfold)
  configure_file(${packaging}/${TALLYFOLD_ID}.metainfo.xml.in
    ${made}/${TALLYFOLD_ID}.metainfo.xml @ONLY)
  install(FILES ${packaging}/${TALLYFOLD_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT window)
  install(FILES ${made}/${TALLYFOLD_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT window)
  install(FILES ${packaging}/${TALLYFOLD_ID}.mime.xml RENAME ${TALLYFOLD_ID}.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT window)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES ${PROJECT_SOURCE_DIR}/src/desktop/look/icons/tallyfold.svg
    RENAME ${TALLYFOLD_ID}.svg DESTINATION ${icons}/scalable/apps COMPONENT window)
  install(FILES ${packaging}/${TALLYFOLD_ID}-symbolic.svg
    DESTINATION ${icons}/symbolic/apps COMPONENT window)
  install(FILES ${packaging}/${TALLYFOLD_ID}-48.png
    RENAME ${TALLYFOLD_ID}.png DESTINATION ${icons}/48x48/apps COMPONENT window)
endif()

# Licence and changes go with each of them.
set(packages tallyfold-console)
if(TARGET tallyfold)
  list(APPEND packages tallyfold)
endif()
set(changes ${made}/changelog)
configure_file(${packaging}/changelog.in ${changes} @ONLY)
if(GZIP_PROGRAM)
  # Without the time of the build, so that two builds of one version are the same. Made along with
  # the file, so that one component installs whatever else is built.
  execute_process(COMMAND ${GZIP_PROGRAM} -9nkf ${changes} COMMAND_ERROR_IS_FATAL ANY)
endif()
foreach(package IN LISTS packages)
  set(component window)
  if(package STREQUAL tallyfold-console)
    set(component console)
  endif()
  set(documents ${CMAKE_INSTALL_DATADIR}/doc/${package})
  install(FILES ${packaging}/copyright DESTINATION ${documents} COMPONENT ${component})
  if(GZIP_PROGRAM)
    install(FILES ${changes}.gz DESTINATION ${documents} COMPONENT ${component})
  endif()
endforeach()

set(CPACK_PACKAGE_NAME tallyfold)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "check register for personal bank accounts")
set(CPACK_PACKAGE_VENDOR "The Tallyfold developers")
set(CPACK_PACKAGE_CONTACT "The Tallyfold developers <developers@tallyfold.org>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL console)
if(TARGET tallyfold)
  list(APPEND CPACK_COMPONENTS_ALL window)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ncompress")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "curl, speech-dispatcher")
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME tallyfold)
# The icons are drawn by a plugin, which no program is linked to.
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "libqt6svg6")
set(CPACK_COMPONENT_WINDOW_DESCRIPTION
"Tallyfold keeps bank accounts as a paper check register does: debits, deposits
and transfers with running balances, splits, reconciling, recurring entries,
filters, summaries, printing, import and export, in a window.")
set(CPACK_DEBIAN_CONSOLE_PACKAGE_NAME tallyfold-console)
set(CPACK_COMPONENT_CONSOLE_DESCRIPTION
"Tallyfold keeps bank accounts as a paper check register does: debits, deposits
and transfers with running balances, splits, reconciling, recurring entries,
filters, summaries, printing, import and export, by commands.")
include(CPack)
