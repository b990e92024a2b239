# What `cmake --install` puts under the prefix, besides the programs and the XML resources
# (installed by their own folders): the desktop integration of the application and the manual
# pages, in the places freedesktop.org and Debian expect them.

include(GNUInstallDirs)

set(CXF_APP_ID "org.cxfcompare.CxFCompare")
set(CXF_HOMEPAGE_URL "https://cxfcompare.org" CACHE STRING "Project home page named in the AppStream data")

if(CXF_BUILD_GUI)
    set(desktop_dir ${CMAKE_SOURCE_DIR}/data/desktop)
    install(FILES ${desktop_dir}/${CXF_APP_ID}.desktop
            DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    configure_file(${desktop_dir}/${CXF_APP_ID}.metainfo.xml.in
                   ${CMAKE_BINARY_DIR}/${CXF_APP_ID}.metainfo.xml @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/${CXF_APP_ID}.metainfo.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    # shared-mime-info reads packages named <name>.xml.
    install(FILES ${desktop_dir}/${CXF_APP_ID}.mime.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME ${CXF_APP_ID}.xml)
    install(FILES ${CMAKE_SOURCE_DIR}/data/icons/${CXF_APP_ID}.svg
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

foreach(page cxf-compare cxf-delta)
    if(page STREQUAL "cxf-compare" AND NOT CXF_BUILD_GUI)
        continue()
    endif()
    configure_file(${CMAKE_SOURCE_DIR}/docs/man/${page}.1 ${CMAKE_BINARY_DIR}/man/${page}.1 @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/man/${page}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
