# korvandi_add_program(<name> <source>...)
#
# A windowed program on the toolkit. Its resources are copied beside it whenever it is linked, so
# that it runs where it was built whatever becomes of the toolkit's folder. How it is installed is
# its project's affair: it looks for them in ../share/<name> and ../share/korvandi, too.
function(korvandi_add_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE Korvandi::Desktop)
  get_property(resources GLOBAL PROPERTY KORVANDI_RESOURCES)
  add_custom_command(TARGET ${name} POST_BUILD VERBATIM
    COMMAND ${CMAKE_COMMAND} -E copy_directory
            "${resources}" "$<TARGET_FILE_DIR:${name}>/resources")
endfunction()
