# What an installation holds. Component "runtime": the game and what belongs to it; "development":
# what programs of other projects are built with, which need the resources of the first to run.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Korvandi)
set(resource_folder ${CMAKE_INSTALL_DATADIR}/korvandi)

# The game.
if(KORVANDI_HAS_DESKTOP AND TARGET korvandi)
  install(TARGETS korvandi RUNTIME COMPONENT runtime)
  install(FILES packaging/korvandi.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT runtime)
  install(FILES packaging/korvandi.6 DESTINATION ${CMAKE_INSTALL_MANDIR}/man6 COMPONENT runtime)
  set(icon_folder ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  foreach(size 16 32 48 64 128 256 512)
    install(FILES packaging/icons/${size}.png RENAME korvandi.png
      DESTINATION ${icon_folder}/${size}x${size}/apps COMPONENT runtime)
  endforeach()
  install(FILES packaging/icons/korvandi.svg
    DESTINATION ${icon_folder}/scalable/apps COMPONENT runtime)
endif()
install(DIRECTORY resources/ DESTINATION ${resource_folder} COMPONENT runtime
  FILES_MATCHING PATTERN "*.font" PATTERN "*.aif")
install(FILES LICENSE resources/LICENSE-DejaVu.txt
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/korvandi COMPONENT runtime)

# The headers; of the windowed platform, the one that does not ask for Qt's.
install(DIRECTORY app platform toolkit
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/korvandi COMPONENT development
  FILES_MATCHING PATTERN "*.h" PATTERN platform/desktop EXCLUDE)
install(FILES korvandi.h korvandi_headless.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/korvandi COMPONENT development)
if(KORVANDI_HAS_DESKTOP)
  install(FILES platform/desktop/desktop.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/korvandi/platform/desktop COMPONENT development)
endif()

# The libraries, in the order in which a linker without a look back needs them.
set(stack
  korvandi_toolkit_start korvandi_toolkit_program korvandi_toolkit_input korvandi_toolkit_graphics
  korvandi_toolkit_text korvandi_toolkit_events korvandi_toolkit_window korvandi_toolkit_font
  korvandi_toolkit_core)
set(headless_libraries korvandi_headless korvandi_app ${stack} korvandi_platform_headless
  korvandi_platform)
set(desktop_libraries korvandi_run korvandi_virtual_screen korvandi_headless korvandi_app ${stack}
  korvandi_platform_headless korvandi_platform_desktop korvandi_platform_parts
  korvandi_platform_sound korvandi_platform)
set(exported korvandi_options korvandi_toolkit korvandi_virtual_screen korvandi_platform_parts
  ${headless_libraries})
if(KORVANDI_HAS_DESKTOP)
  list(APPEND exported korvandi_desktop ${desktop_libraries})
endif()
list(REMOVE_DUPLICATES exported)
foreach(target IN LISTS exported)
  string(REPLACE korvandi_ "" name ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
endforeach()
set_target_properties(korvandi_toolkit PROPERTIES EXPORT_NAME Toolkit)
set_target_properties(korvandi_headless PROPERTIES EXPORT_NAME Headless)
if(KORVANDI_HAS_DESKTOP)
  set_target_properties(korvandi_desktop PROPERTIES EXPORT_NAME Desktop)
endif()
install(TARGETS ${exported} EXPORT KorvandiTargets ARCHIVE COMPONENT development)
install(EXPORT KorvandiTargets NAMESPACE Korvandi::
  DESTINATION ${package_folder} COMPONENT development)

# For find_package.
configure_package_config_file(cmake/KorvandiConfig.cmake.in KorvandiConfig.cmake
  INSTALL_DESTINATION ${package_folder} PATH_VARS resource_folder)
write_basic_package_version_file(KorvandiConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/KorvandiConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/KorvandiConfigVersion.cmake
  cmake/korvandi_add_program.cmake
  DESTINATION ${package_folder} COMPONENT development)

# For pkg-config: korvandi-headless and, where the windowed platform was built, korvandi.
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH up /p/${pkgconfig_folder} /p)
string(REGEX REPLACE "/$" "" up "${up}")
function(korvandi_install_pc name requires)
  list(TRANSFORM ARGN PREPEND -l OUTPUT_VARIABLE libraries)
  list(JOIN libraries " " libraries)
  configure_file(cmake/korvandi.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
    DESTINATION ${pkgconfig_folder} COMPONENT development)
endfunction()
korvandi_install_pc(korvandi-headless "" ${headless_libraries})
if(KORVANDI_HAS_DESKTOP)
  korvandi_install_pc(korvandi "Qt6Widgets openal sndfile xcb" ${desktop_libraries})
endif()
