# What `cmake --install` puts where, and the .deb that CPack makes of it (`make package`).
#
#   bin/                          kartova, kartova-cli
#   share/applications/           the desktop entry (opens .gb/.gbc ROMs)
#   share/icons/hicolor/          the icon, as SVG and as PNG in the usual sizes
#   share/metainfo/               AppStream metadata for software centres
#   share/man/man1/               kartova(1), kartova-cli(1)
#   share/kartova/demo/           the demo ROM and its definition, made by kartova-cli at build time
#   share/doc/kartova/            README and the documentation
#
# share/kartova is also how both programs know that they are installed: then they keep
# Kartova.ini in the per-user configuration directory instead of beside themselves.

include(GNUInstallDirs)
# Debian's documentation folder is named after the package, which is lower case.
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/kartova)

set(KARTOVA_APP_ID org.kartova.Kartova)
set(KARTOVA_ICON_SIZES 16 22 24 32 48 64 128 256)

install(TARGETS kartova-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(KARTOVA_UI)
  install(TARGETS kartova RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES resources/desktop/${KARTOVA_APP_ID}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES resources/desktop/${KARTOVA_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES docs/man/kartova.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
install(FILES docs/man/kartova-cli.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# The icon: the SVG is the source, the PNG sizes are drawn from it at build time so that no
# picture has to be kept twice. Without rsvg-convert only the scalable icon is installed.
install(FILES resources/icons/kartova.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
find_program(KARTOVA_RSVG_CONVERT rsvg-convert)
if(KARTOVA_RSVG_CONVERT)
  set(icon_files)
  foreach(size IN LISTS KARTOVA_ICON_SIZES)
    set(png ${CMAKE_BINARY_DIR}/icons/${size}x${size}/kartova.png)
    add_custom_command(
      OUTPUT ${png}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/icons/${size}x${size}
      COMMAND ${KARTOVA_RSVG_CONVERT} -w ${size} -h ${size}
              ${PROJECT_SOURCE_DIR}/resources/icons/kartova.svg -o ${png}
      DEPENDS ${PROJECT_SOURCE_DIR}/resources/icons/kartova.svg
      COMMENT "Drawing the ${size}x${size} icon")
    list(APPEND icon_files ${png})
    install(FILES ${png} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  add_custom_target(kartova_icons ALL DEPENDS ${icon_files})
else()
  message(STATUS "rsvg-convert not found: only the scalable icon will be installed")
endif()

# The demo ROM, built by the program itself, so that a new user has something to open.
set(demo_dir ${CMAKE_BINARY_DIR}/share-demo)
add_custom_command(
  OUTPUT ${demo_dir}/demo.gbc ${demo_dir}/demo.ini
  COMMAND $<TARGET_FILE:kartova-cli> make-demo ${demo_dir}
  DEPENDS kartova-cli
  COMMENT "Making the demo ROM to install")
add_custom_target(kartova_demo_files ALL DEPENDS ${demo_dir}/demo.gbc ${demo_dir}/demo.ini)
install(FILES ${demo_dir}/demo.gbc ${demo_dir}/demo.ini
        DESTINATION ${CMAKE_INSTALL_DATADIR}/kartova/demo)

file(GLOB KARTOVA_DOCS CONFIGURE_DEPENDS docs/*.md)
install(FILES README.md ${KARTOVA_DOCS} DESTINATION ${CMAKE_INSTALL_DOCDIR})

# ---- The Debian package ----------------------------------------------------------------------
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kartova)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Kartova")
set(CPACK_PACKAGE_CONTACT "Kartova developers <developers@kartova.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "map editor for Game Boy Color ROM images")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Kartova edits the maps of a Game Boy Color role-playing game right inside its\n\
ROM image: paint blocks with the mouse, edit headers, connections and events,\n\
see the maps in the game's colours for each time of day, and save in place.\n\
Saves are safe (the old file or the new one, never a mixture) and every edit\n\
can be undone. kartova-cli prints maps as JSON and renders them as PNG.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries the programs link (Qt, libpng, the C++ runtime), as dpkg-shlibdeps finds them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The MIME types of the desktop entry (.gb, .gbc) come from shared-mime-info, the German texts of
# Qt's own buttons and dialogs from qt6-translations-l10n.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "shared-mime-info, qt6-translations-l10n")
set(CPACK_STRIP_FILES ON)
include(CPack)

# `make test` installs into a staging prefix inside the build tree and runs what it installed.
if(KARTOVA_TESTS)
  add_test(NAME InstallIntoStagingPrefix
           COMMAND bash ${PROJECT_SOURCE_DIR}/tests/install/check_install.sh
                   ${CMAKE_BINARY_DIR} ${CMAKE_BINARY_DIR}/install-test $<$<BOOL:${KARTOVA_UI}>:with-ui>)
  set_tests_properties(InstallIntoStagingPrefix PROPERTIES TIMEOUT 120)
endif()
