# The program as a part of a Debian system: its folder, which users can't write to, a command, an
# entry in the desktop's menu with its icon, and the package made of these by CPack.
program_folder(system ${system_folder} EXCLUDE_FROM_ALL)
install(FILES ${demo}/zelkova.ini DESTINATION ${system_folder} COMPONENT system EXCLUDE_FROM_ALL)

# The program looks for its folder behind the link.
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/links)
file(CREATE_LINK ../${system_folder}/zelkova ${CMAKE_CURRENT_BINARY_DIR}/links/zelkova SYMBOLIC)
file(CREATE_LINK ../../../${system_folder}/manual ${CMAKE_CURRENT_BINARY_DIR}/links/manual SYMBOLIC)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/links/zelkova
        DESTINATION bin COMPONENT system EXCLUDE_FROM_ALL)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/links/manual ${CMAKE_SOURCE_DIR}/docs/file-formats.md
              ${CMAKE_SOURCE_DIR}/docs/zelkova-batch.md
        DESTINATION share/doc/zelkova COMPONENT system EXCLUDE_FROM_ALL)

# The command line, which needs nothing of the folder, with what shells and man tell of it.
if(TARGET zelkova_batch)
  set(batch ${CMAKE_CURRENT_SOURCE_DIR}/batch)
  file(CREATE_LINK ../${system_folder}/zelkova-batch
       ${CMAKE_CURRENT_BINARY_DIR}/links/zelkova-batch SYMBOLIC)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/links/zelkova-batch
          DESTINATION bin COMPONENT system EXCLUDE_FROM_ALL)
  install(FILES ${batch}/zelkova-batch.1
          DESTINATION share/man/man1 COMPONENT system EXCLUDE_FROM_ALL)
  install(FILES ${batch}/zelkova-batch.bash RENAME zelkova-batch
          DESTINATION share/bash-completion/completions COMPONENT system EXCLUDE_FROM_ALL)
  install(FILES ${batch}/_zelkova-batch
          DESTINATION share/zsh/vendor-completions COMPONENT system EXCLUDE_FROM_ALL)
endif()

install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/zelkova.desktop
        DESTINATION share/applications COMPONENT system EXCLUDE_FROM_ALL)
foreach(size 16 24 32 48 64 128 256)
  install(FILES ${art}/pictures/icon${size}.png RENAME zelkova.png
          DESTINATION share/icons/hicolor/${size}x${size}/apps
          COMPONENT system EXCLUDE_FROM_ALL)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};zelkova;system;/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "ZELKOVA maintainers <zelkova@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Without such a font the Japanese texts can't be shown, without the plug-ins no sound is played.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "fonts-ipafont-gothic | fonts-noto-cjk | fonts-vlgothic, gstreamer1.0-plugins-good, qt6-translations-l10n, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gnome-calculator | kcalc | galculator")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Editor for ROM images of engine control units")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "ZELKOVA shows the maps, scales and limits of an engine control unit's ROM image
as coloured grids, curves and surfaces, and lets a tuner change them. What lies
where is told by an address map, a short text file for each car model. Images
are read and written as raw binary, Intel HEX, S-records and odd/even pairs. The
program speaks Japanese and English, and a manual and a made-up car come with it.")
include(CPack)
