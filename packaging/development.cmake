# For programs of others: the library of images and address maps as values, the headers that tell
# what it can, and what find_package(zelkova) reads. Where there are windows to install it comes
# only when it is asked for (component development), so that no user of the editor gets it.
if(TARGET zelkova)
  set(unless_asked EXCLUDE_FROM_ALL)
endif()
set(package lib/cmake/zelkova)

set_target_properties(zelkova_rom PROPERTIES EXPORT_NAME rom)
install(TARGETS zelkova_rom EXPORT zelkova
        ARCHIVE DESTINATION lib COMPONENT development ${unless_asked})
# The headers include each other by their folders, which stand in a folder of their own.
set(headers
    platform/failure platform/file_names platform/files platform/numbers platform/text_encoding
    platform/utf8
    rom/address_check rom/addressed_bytes rom/image_differences rom/image_reading
    rom/image_writing rom/intel_hex_writer rom/map_entries
    rom/map_traits rom/map_values rom/srecord_writer)
foreach(header ${headers})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${CMAKE_SOURCE_DIR}/src/${header}.h
          DESTINATION include/zelkova/${folder} COMPONENT development ${unless_asked})
endforeach()
install(EXPORT zelkova NAMESPACE zelkova:: FILE zelkovaTargets.cmake
        DESTINATION ${package} COMPONENT development ${unless_asked})

include(CMakePackageConfigHelpers)
get_target_property(libraries zelkova_rom LINK_LIBRARIES)
set(needs_iconv OFF)
if("Iconv::Iconv" IN_LIST libraries)
  set(needs_iconv ON)
endif()
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/zelkovaConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/zelkovaConfig.cmake INSTALL_DESTINATION ${package})
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/zelkovaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zelkovaConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/zelkovaConfigVersion.cmake
        DESTINATION ${package} COMPONENT development ${unless_asked})
