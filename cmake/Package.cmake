# `cmake --install` and CPack: a Debian package here, a zip and an installer on Windows.
# The program looks for Help and Support beside itself, so all of it goes into one folder.
include(GNUInstallDirs)
get_target_property(qt_type Qt6::Core TYPE)
string(COMPARE EQUAL "${qt_type}" STATIC_LIBRARY TAMBRIX_QT_IS_STATIC)
if(WIN32 AND TAMBRIX_QT_IS_STATIC)
  set(TAMBRIX_FOLDER .)
elseif(WIN32)
  set(TAMBRIX_FOLDER ${CMAKE_INSTALL_BINDIR}) # where Qt's deploy script expects the program
else()
  set(TAMBRIX_FOLDER lib/tambrix)
endif()

install(TARGETS tambrix tambrix_cli RUNTIME DESTINATION ${TAMBRIX_FOLDER})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/texts/Help DESTINATION ${TAMBRIX_FOLDER})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/texts/Support DESTINATION ${TAMBRIX_FOLDER} OPTIONAL)

if(WIN32)
  include(PackageWindows)
else()
  set(icons ${CMAKE_SOURCE_DIR}/src/app/resources)
  install(CODE "
    file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    foreach(program tambrix tambrix-cli)
      file(CREATE_LINK ../${TAMBRIX_FOLDER}/\${program}
           \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/\${program}\" SYMBOLIC)
    endforeach()")
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/man/tambrix-cli.1
          DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/packaging/systemd/ DESTINATION lib/systemd/system)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/packaging/sysusers/ DESTINATION lib/sysusers.d)
  install(FILES ${CMAKE_SOURCE_DIR}/docs/many-presses.md
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tambrix)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/tambrix.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${CMAKE_SOURCE_DIR}/packaging/debian/copyright
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tambrix)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES ${icons}/tambrix-${size}.png RENAME tambrix.png
            DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
  endforeach()
  install(FILES ${icons}/tambrix.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
endif()

set(CPACK_PACKAGE_NAME tambrix)
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_VENDOR "TAMBRIX")
set(CPACK_PACKAGE_CONTACT "TAMBRIX maintainers <tambrix@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6sql6-sqlite) # a plugin: no library names it
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
  ${CMAKE_SOURCE_DIR}/packaging/debian/postinst ${CMAKE_SOURCE_DIR}/packaging/debian/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
