# The resources of a program for Windows: its icon, its version, and the manifest that tells the
# system how to run it.

enable_language(RC)

# DESCRIPTION is what the system shows as the name of the program.
function(add_windows_resources PROGRAM DESCRIPTION)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${PROGRAM}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/quorvel.rc.in ${resources} @ONLY)
  set(icon ${PROJECT_SOURCE_DIR}/data/icons/quorvel.ico)
  set(manifest ${PROJECT_SOURCE_DIR}/packaging/quorvel.manifest)
  set_source_files_properties(${resources} PROPERTIES
    INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR}/data/icons;${PROJECT_SOURCE_DIR}/packaging"
    OBJECT_DEPENDS "${icon};${manifest}")
  target_sources(${PROGRAM} PRIVATE ${resources})
endfunction()
