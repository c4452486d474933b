# Printing, dropping, browsing, looks, and what else the window offers beside its list.

# A window to drag files from.
add_executable(drag_source drag_source.cpp)
target_link_libraries(drag_source PRIVATE qvl_toolkit qvl_options)
set_target_properties(drag_source PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${QVL_PROGRAM_DIR}")

qvl_gui_test(extras_gui extras_gui.sh)
qvl_gui_test(browsing_gui browsing_gui.sh)
qvl_gui_test(dropping_gui dropping_gui.sh)
qvl_gui_test(looks_gui looks_gui.sh)

# With a spooler of its own, which keeps the pages.
if(WIN32)
  add_test(NAME printing_gui
    COMMAND sh ${PROJECT_SOURCE_DIR}/tests/e2e/with_spooler
            sh ${PROJECT_SOURCE_DIR}/tests/e2e/wine_logon
            ${CMAKE_CURRENT_SOURCE_DIR}/printing_gui.sh windows ${QVL_PROGRAM_DIR}
            ${QVL_GUI_PICTURES})
else()
  add_test(NAME printing_gui
    COMMAND sh ${PROJECT_SOURCE_DIR}/tests/e2e/with_spooler
            ${CMAKE_CURRENT_SOURCE_DIR}/printing_gui.sh linux ${QVL_PROGRAM_DIR}
            ${QVL_GUI_PICTURES})
endif()
set_tests_properties(printing_gui PROPERTIES TIMEOUT 600)
qvl_one_at_a_time(printing_gui)

# What the window tells those who hear it, through a session bus of its own.
if(NOT WIN32)
  pkg_check_modules(QVL_ATSPI IMPORTED_TARGET atspi-2 gobject-2.0)
  if(QVL_ATSPI_FOUND)
    add_executable(accessible_names accessible_names.cpp)
    target_link_libraries(accessible_names PRIVATE PkgConfig::QVL_ATSPI qvl_options)
    set_target_properties(accessible_names PROPERTIES
      RUNTIME_OUTPUT_DIRECTORY "${QVL_PROGRAM_DIR}")
    add_test(NAME names_gui
      COMMAND dbus-run-session -- ${CMAKE_CURRENT_SOURCE_DIR}/names_gui.sh linux
              ${QVL_PROGRAM_DIR} ${QVL_GUI_PICTURES})
    set_tests_properties(names_gui PROPERTIES TIMEOUT 600)
  endif()
endif()
