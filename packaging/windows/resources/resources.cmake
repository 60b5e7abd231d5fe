# What Windows reads in the program's file: its version, its manifest and, where the drawing can be turned into one, its icon.
set_target_properties(korvinel PROPERTIES WIN32_EXECUTABLE ON)  # no console beside the window
enable_language(RC)
set(resources ${PROJECT_SOURCE_DIR}/packaging/windows/resources)
set(iconLine "")
set(drawing ${PROJECT_SOURCE_DIR}/packaging/korvinel.svg)
find_program(KORVINEL_RSVG rsvg-convert)
if(KORVINEL_RSVG AND EXISTS ${drawing})
  set(icon ${PROJECT_BINARY_DIR}/korvinel.ico)
  add_custom_command(OUTPUT ${icon} DEPENDS ${drawing} ${resources}/icon.py VERBATIM
    COMMAND /usr/bin/python3 ${resources}/icon.py ${drawing} ${icon})
  set(iconLine "1 ICON \"${icon}\"")
endif()
configure_file(${resources}/korvinel.rc.in ${PROJECT_BINARY_DIR}/korvinel.rc @ONLY)
set_source_files_properties(${PROJECT_BINARY_DIR}/korvinel.rc PROPERTIES
  OBJECT_DEPENDS "${icon};${resources}/korvinel.manifest")
target_sources(korvinel PRIVATE ${PROJECT_BINARY_DIR}/korvinel.rc)
