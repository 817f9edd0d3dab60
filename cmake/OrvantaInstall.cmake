# What `cmake --install` puts where, and the Debian package made of it (tools/make-package).
# The program's libraries are its own business and lie in a folder of their own, with what they look for beside
# themselves; the program finds them there wherever the whole tree is moved.
include(GNUInstallDirs)

set(orvanta_libraries_folder ${CMAKE_INSTALL_LIBDIR}/orvanta)
set(orvanta_libraries orvanta_toolkit orvanta_chart orvanta_platform orvanta_signal_base orvanta_spectral_data
    orvanta_chart_view orvanta_module orvanta_review orvanta_bridge)
file(RELATIVE_PATH libraries_from_program /${CMAKE_INSTALL_BINDIR} /${orvanta_libraries_folder})
set_target_properties(orvanta PROPERTIES INSTALL_RPATH $ORIGIN/${libraries_from_program})
set_target_properties(${orvanta_libraries} PROPERTIES INSTALL_RPATH $ORIGIN)
install(TARGETS orvanta RUNTIME)
install(TARGETS ${orvanta_libraries} LIBRARY DESTINATION ${orvanta_libraries_folder})
install(DIRECTORY resources/windows/ DESTINATION ${orvanta_libraries_folder} FILES_MATCHING PATTERN *.wnd)

# What a desktop looks for.
set(desktop_files ${PROJECT_SOURCE_DIR}/resources/desktop)
install(FILES ${desktop_files}/orvanta.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop_files}/orvanta.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
    RENAME orvanta.xml)
install(FILES ${desktop_files}/orvanta.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
    RENAME org.orvanta.orvanta.metainfo.xml)
set(icons_folder ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
foreach(size 16 24 32 48 64 128 256)
    install(FILES ${desktop_files}/icons/${size}.png DESTINATION ${icons_folder}/${size}x${size}/apps
        RENAME orvanta.png)
endforeach()
install(FILES resources/icons/orvanta.svg DESTINATION ${icons_folder}/scalable/apps)

# Debian wants man page and list of changes compressed, without a time in them.
find_program(GZIP gzip REQUIRED)
foreach(text orvanta.1 changelog)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${desktop_files}/${text})
    execute_process(COMMAND ${GZIP} -9nc ${desktop_files}/${text}
        OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/${text}.gz COMMAND_ERROR_IS_FATAL ANY)
endforeach()
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orvanta.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The manual where the program looks for it, with the pages and pictures that it points to. One step less lies
# between it and the resources than in the source tree.
file(GLOB manual CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/manual/*.md)
foreach(page ${manual})
    get_filename_component(name ${page} NAME)
    file(READ ${page} text)
    string(REPLACE "../../resources/" "../resources/" text "${text}")
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/manual/${name} "${text}")
endforeach()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${manual})
install(DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/manual docs/images DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY resources/icons DESTINATION ${CMAKE_INSTALL_DOCDIR}/resources)
file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)
install(FILES ${pages} ${desktop_files}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvanta)
set(CPACK_PACKAGE_VENDOR "Orvanta developers")
set(CPACK_PACKAGE_CONTACT "Orvanta developers <orvanta@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "review EEG recordings and analyse their spectra")
set(CPACK_PACKAGE_DESCRIPTION "Shows EEG recordings (EDF, BDF, BrainVision) as traces, keeps events and
artifacts, and computes power, amplitude, coherence and phase spectra,
band measures, comparisons with statistics, and topographic maps.
Everything works from the command line, too.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
# Texts of Qt's own dialogs in other languages, and windows under Wayland; videos of cartoons.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-translations-l10n, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS ffmpeg)
include(CPack)
