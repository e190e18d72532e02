# What an installation has, and the Debian package made of it. The program finds its parts beside
# itself, so that a prefix can be moved.

# Installing needs what is installed, not the tests.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

set(VLT_LIBRARY_DIR lib/workbench)
set(VLT_PLUGIN_INSTALL_DIR ${VLT_LIBRARY_DIR}/plugins)
set(VLT_DOC_DIR share/doc/vlr-workbench)

set_target_properties(workbench workbench-tour PROPERTIES
    INSTALL_RPATH "$ORIGIN/../${VLT_LIBRARY_DIR}")
set_target_properties(vltsetting vltbridge PROPERTIES
    INSTALL_RPATH "$ORIGIN/..:$ORIGIN")
install(TARGETS workbench workbench-tour RUNTIME DESTINATION bin)
install(TARGETS designhost LIBRARY DESTINATION ${VLT_LIBRARY_DIR})
install(TARGETS vltsetting vltbridge LIBRARY DESTINATION ${VLT_PLUGIN_INSTALL_DIR})

install(DIRECTORY examples/sample DESTINATION share/workbench
    USE_SOURCE_PERMISSIONS
    PATTERN "*.names" EXCLUDE)
install(FILES README.md CHANGELOG.md DESTINATION ${VLT_DOC_DIR})
install(DIRECTORY docs DESTINATION ${VLT_DOC_DIR})
install(FILES packaging/workbench.1 DESTINATION share/man/man1)
install(FILES packaging/workbench.desktop DESTINATION share/applications)
install(FILES packaging/workbench.svg DESTINATION share/icons/hicolor/scalable/apps)
install(FILES packaging/workbench-mime.xml DESTINATION share/mime/packages RENAME workbench.xml)
install(FILES packaging/workbench.metainfo.xml DESTINATION share/metainfo)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vlr-workbench)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The maintainers of the workbench <maintainers@vlr-workbench.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor and checks for FPGA power analysis configurations")
set(CPACK_PACKAGE_DESCRIPTION
    "Edits what a power analysis has to know about a synthesised FPGA design and no netlist says:
operating conditions, enable rates, toggle rates, and the simulation activity files. Checks such a
configuration against netlist, device and activity files, in a window and on the command line.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY} ${VLT_PLUGIN_DIR})
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "yosys, shared-mime-info, desktop-file-utils")
include(CPack)
