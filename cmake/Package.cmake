# What is installed where, and the Debian package: ninja -C build/run package
include(GNUInstallDirs)

install(TARGETS meridune trevia RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(desktop ${CMAKE_SOURCE_DIR}/resources/desktop)
install(FILES ${desktop}/meridune.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop}/meridune-segy.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${desktop}/meridune.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
        RENAME org.brenlake.Meridune.metainfo.xml)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${desktop}/meridune.svg DESTINATION ${icons}/scalable/apps)
install(FILES ${desktop}/meridune.svg DESTINATION ${icons}/scalable/mimetypes RENAME application-x-segy.svg)
foreach(size 48 128)
    install(FILES ${desktop}/meridune-${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME meridune.png)
endforeach()

# Debian wants these packed without the time and name of the file, so that two builds give the same bytes.
find_program(GZIP gzip REQUIRED)
function(install_packed source folder name)
    set(packed ${CMAKE_BINARY_DIR}/packed/${name}.gz)
    add_custom_command(OUTPUT ${packed} DEPENDS ${source}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/packed
        COMMAND ${GZIP} -9nc ${source} > ${packed})
    add_custom_target(packed-${name} ALL DEPENDS ${packed})
    install(FILES ${packed} DESTINATION ${folder})
endfunction()
foreach(program meridune trevia)
    install_packed(${CMAKE_SOURCE_DIR}/resources/man/${program}.1 ${CMAKE_INSTALL_MANDIR}/man1 ${program}.1)
endforeach()
install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${CMAKE_INSTALL_DATADIR}/doc/meridune changelog)
install(FILES ${CMAKE_SOURCE_DIR}/resources/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/meridune)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME meridune)
set(CPACK_PACKAGE_CONTACT "The Meridune maintainers <maintainers@users.noreply.c-seed-edbbac9c.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "interactive seismic data display and processing")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Meridune opens SEG-Y files, pages through their ensembles as wiggles,
variable area and colour, and conditions the traces on the screen.
The program trevia looks at SEG-Y files from the command line and makes a
survey with known answers.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plug-ins are not linked, so that nothing finds them: .tif is one.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt5-image-formats-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
