# What goes to the user, and the Debian package that holds it. "./dev package" builds and checks it.

install(TARGETS quillmark-console quillmark quillmark-radio DESTINATION "${CMAKE_INSTALL_BINDIR}")

# A console started from its build folder finds the default set under share/ beside itself.
set(defaultSet "${CMAKE_SOURCE_DIR}/share/NewRadio.txt")
install(FILES "${defaultSet}" DESTINATION "${CMAKE_INSTALL_DATADIR}/quillmark-console")
configure_file("${defaultSet}" "${CMAKE_BINARY_DIR}/share/quillmark-console/NewRadio.txt" COPYONLY)

install(FILES packaging/quillmark-console.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES packaging/quillmark-console.metainfo.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES packaging/completion/quillmark-console packaging/completion/quillmark
        packaging/completion/quillmark-radio
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
install(FILES src/qt/icons/quillmark-console.svg
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

# What must be made first. These are no part of a daily build.
option(QUILLMARK_PACKAGE "Make what the package holds beside the programs" OFF)
if(QUILLMARK_PACKAGE)
  find_program(gzipProgram gzip REQUIRED)
  find_program(svgProgram rsvg-convert REQUIRED)
  set(made "${CMAKE_BINARY_DIR}/package")
  file(MAKE_DIRECTORY "${made}")
  set(docFolder "${CMAKE_INSTALL_DATADIR}/doc/quillmark-console")

  # quillmark_compressed(SOURCE NAME FOLDER): installs SOURCE as FOLDER/NAME.gz, without a time in it.
  function(quillmark_compressed source name folder)
    add_custom_command(OUTPUT "${made}/${name}.gz"
      COMMAND "${gzipProgram}" -9 -n -c "${source}" > "${made}/${name}.gz"
      DEPENDS "${source}" VERBATIM)
    add_custom_target(compress_${name} ALL DEPENDS "${made}/${name}.gz")
    install(FILES "${made}/${name}.gz" DESTINATION "${folder}")
  endfunction()

  foreach(page IN ITEMS quillmark-console.1 quillmark.1 quillmark-radio.1)
    quillmark_compressed("${CMAKE_SOURCE_DIR}/packaging/man/${page}" ${page}
                         "${CMAKE_INSTALL_MANDIR}/man1")
  endforeach()
  quillmark_compressed("${CMAKE_SOURCE_DIR}/packaging/changelog" changelog "${docFolder}")
  install(FILES packaging/copyright DESTINATION "${docFolder}")

  set(icon "${CMAKE_SOURCE_DIR}/src/qt/icons/quillmark-console.svg")
  foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    add_custom_command(OUTPUT "${made}/icon-${size}.png"
      COMMAND "${svgProgram}" -w ${size} -h ${size} -o "${made}/icon-${size}.png" "${icon}"
      DEPENDS "${icon}" VERBATIM)
    list(APPEND iconFiles "${made}/icon-${size}.png")
    install(FILES "${made}/icon-${size}.png" RENAME quillmark-console.png
            DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
  endforeach()
  add_custom_target(icon_sizes ALL DEPENDS ${iconFiles})

  # The manual: the pages for users, made by the code that shows them in the program.
  quillmark_program(quillmark_manual SOURCES tools/manual/main.cpp src/qt/help/manual.cpp
                    LINK Qt6::Gui)
  target_include_directories(quillmark_manual PRIVATE "${CMAKE_SOURCE_DIR}/src")
  file(GLOB pages CONFIGURE_DEPENDS docs/*.md docs/pictures/*.png)
  add_custom_command(OUTPUT "${made}/html/index.html"
    COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen
            $<TARGET_FILE:quillmark_manual> "${CMAKE_SOURCE_DIR}/docs" "${made}/html"
    DEPENDS quillmark_manual ${pages} VERBATIM)
  add_custom_target(manual ALL DEPENDS "${made}/html/index.html")
  install(DIRECTORY "${made}/html" docs/pictures DESTINATION "${docFolder}"
          FILES_MATCHING PATTERN "*.html" PATTERN "*.png")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmark-console)
set(CPACK_PACKAGE_VENDOR "The Quillmark console authors")
set(CPACK_PACKAGE_CONTACT "The Quillmark console authors <authors@quillmark.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Configure and watch Quillmark SS data radios")
set(CPACK_PACKAGE_DESCRIPTION
    "Connects a Quillmark SS spread-spectrum data radio on a serial port, reads
all its settings into one view and changes them one at a time. Saves and
restores configurations, sets up new radios, upgrades the firmware, and shows
the signal level and the traffic of each frequency zone.
.
With it comes a simulated radio to try and to learn on.")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://quillmark.example/")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION comm)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
