# The editor's English translation. Its source, translations/kartova_en.ts, is kept in the
# repository and edited with Qt Linguist; lrelease turns it into kartova_en.qm at build time,
# which is built into kartova_ui as the resource :/i18n/kartova_en.qm. German needs no file: it
# is the language of the source.
#
# `cmake --build --preset release --target update-translations` runs lupdate over the ui's
# sources and brings new and changed texts into the .ts (translations already made are kept).

find_program(KARTOVA_LRELEASE lrelease HINTS /usr/lib/qt6/bin "${QT6_INSTALL_PREFIX}/bin" REQUIRED)
find_program(KARTOVA_LUPDATE lupdate HINTS /usr/lib/qt6/bin "${QT6_INSTALL_PREFIX}/bin")

set(KARTOVA_TS_FILE "${PROJECT_SOURCE_DIR}/translations/kartova_en.ts")
set(KARTOVA_QM_DIR "${CMAKE_CURRENT_BINARY_DIR}/i18n")
set(KARTOVA_QM_FILE "${KARTOVA_QM_DIR}/kartova_en.qm")

add_custom_command(
  OUTPUT "${KARTOVA_QM_FILE}"
  COMMAND "${CMAKE_COMMAND}" -E make_directory "${KARTOVA_QM_DIR}"
  COMMAND "${KARTOVA_LRELEASE}" -silent "${KARTOVA_TS_FILE}" -qm "${KARTOVA_QM_FILE}"
  DEPENDS "${KARTOVA_TS_FILE}"
  COMMENT "Building the English translation"
  VERBATIM)

qt_add_resources(kartova_ui kartova_translations
  PREFIX "/i18n"
  BASE "${KARTOVA_QM_DIR}"
  FILES "${KARTOVA_QM_FILE}")

if(KARTOVA_LUPDATE)
  add_custom_target(update-translations
    COMMAND "${KARTOVA_LUPDATE}" -silent -locations none -no-obsolete -I "${PROJECT_SOURCE_DIR}/src"
            -source-language de -target-language en
            "${PROJECT_SOURCE_DIR}/src/ui" "${PROJECT_SOURCE_DIR}/src/app"
            -ts "${KARTOVA_TS_FILE}"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
    COMMENT "Bringing new texts of the ui into translations/kartova_en.ts"
    VERBATIM)
endif()
