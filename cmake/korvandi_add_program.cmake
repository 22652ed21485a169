# korvandi_add_program(<name> <source>... [ICON <picture.png>])
#
# A windowed program on the toolkit. Its resources are copied beside it whenever it is linked, so
# that it runs where it was built whatever becomes of the toolkit's folder. How it is installed is
# its project's affair: it looks for them in ../share/<name> and ../share/korvandi, too.
#
# ICON: what the desktop shows for its windows; <name>.png, beside the program or among its resources.
function(korvandi_add_program name)
  cmake_parse_arguments(PARSE_ARGV 1 program "" "ICON" "")
  add_executable(${name} ${program_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE Korvandi::Desktop)
  get_property(resources GLOBAL PROPERTY KORVANDI_RESOURCES)
  add_custom_command(TARGET ${name} POST_BUILD VERBATIM
    COMMAND ${CMAKE_COMMAND} -E copy_directory
            "${resources}" "$<TARGET_FILE_DIR:${name}>/resources")
  if(program_ICON)
    get_filename_component(icon "${program_ICON}" ABSOLUTE)
    add_custom_command(TARGET ${name} POST_BUILD VERBATIM
      COMMAND ${CMAKE_COMMAND} -E copy "${icon}" "$<TARGET_FILE:${name}>.png")
  endif()
endfunction()
