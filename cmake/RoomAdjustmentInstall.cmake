# What `cmake --install` and CPack lay down. Components plugin, translations, headers, tool and
# documents are for who has a host; component demo is the demonstration host and the simulator.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Laid out like the build folder: the programs look for the rest relative to themselves, so that the
# tree can be moved as a whole.
set(home_folder ${CMAKE_INSTALL_LIBDIR}/room-adjustment)
set(plugin_folder ${home_folder}/plugins)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/room-adjustment)
set(document_folder ${CMAKE_INSTALL_DATAROOTDIR}/doc/room-adjustment)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/RoomAdjustment)

install(TARGETS roomadjustment LIBRARY DESTINATION ${plugin_folder} COMPONENT plugin)

install(FILES ${RA_MODULE_TRANSLATIONS} DESTINATION ${plugin_folder}/translations
        COMPONENT translations)

install(DIRECTORY contract DESTINATION ${header_folder} COMPONENT headers
        FILES_MATCHING PATTERN "*.h")
install(FILES controller/vocabulary.h DESTINATION ${header_folder}/controller COMPONENT headers)
configure_package_config_file(cmake/RoomAdjustmentConfig.cmake.in
  ${CMAKE_BINARY_DIR}/package/RoomAdjustmentConfig.cmake
  INSTALL_DESTINATION ${package_folder} PATH_VARS plugin_folder header_folder)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/RoomAdjustmentConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/package/RoomAdjustmentConfig.cmake
              ${CMAKE_BINARY_DIR}/package/RoomAdjustmentConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT headers)

install(FILES README.md CHANGELOG.md DESTINATION ${document_folder} COMPONENT documents)
install(DIRECTORY docs examples DESTINATION ${document_folder} COMPONENT documents)

if(TARGET room-adjustment-points)
  install(TARGETS room-adjustment-points RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  install(FILES tools/room-adjustment-points.1
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
endif()

if(TARGET room-adjustment-host)
  install(TARGETS room-adjustment-host tracking-simulator
          RUNTIME DESTINATION ${home_folder}/bin COMPONENT demo)
  install(FILES ${RA_HOST_TRANSLATIONS} DESTINATION ${home_folder}/translations COMPONENT demo)
  install(CODE "
    foreach(program room-adjustment-host tracking-simulator)
      set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
      file(MAKE_DIRECTORY \"\${folder}\")
      file(CREATE_LINK ../${home_folder}/bin/\${program} \"\${folder}/\${program}\" SYMBOLIC)
    endforeach()" COMPONENT demo)
endif()

set(module_components plugin translations headers documents)
if(TARGET room-adjustment-points)
  list(APPEND module_components tool)
endif()
set(CPACK_COMPONENTS_ALL ${module_components})
if(TARGET room-adjustment-host)
  list(APPEND CPACK_COMPONENTS_ALL demo)
endif()
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME room-adjustment)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Room adjustment module for the front-end of a tracking system")
set(CPACK_PACKAGE_CONTACT ${ROOM_ADJUSTMENT_CONTACT})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_MODULE_PACKAGE_NAME room-adjustment)
set(CPACK_DEBIAN_MODULE_PACKAGE_SUGGESTS qttranslations5-l10n)
set(CPACK_COMPONENT_MODULE_DESCRIPTION "Plug-in, translations, headers, documents and the tool for point files.")
set(CPACK_DEBIAN_DEMO_PACKAGE_NAME room-adjustment-demo)
set(CPACK_DEBIAN_DEMO_PACKAGE_DEPENDS "room-adjustment (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEMO_DESCRIPTION "Demonstration host and simulated tracking controller.")
include(CPack)
foreach(component ${module_components})
  cpack_add_component(${component} GROUP module)
endforeach()
cpack_add_component(demo GROUP demo)
