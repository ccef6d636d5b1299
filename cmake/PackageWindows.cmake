# What `cpack` makes for Windows: a zip to unpack anywhere, and an installer (NSIS) for the user who
# runs it, without administrator's rights.
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION ${TAMBRIX_FOLDER} RENAME LICENSE.txt)

if(NOT TAMBRIX_QT_IS_STATIC)
  if(Qt6_VERSION VERSION_LESS 6.5)
    qt_generate_deploy_app_script(TARGET tambrix FILENAME_VARIABLE deploy_script)
  else()
    qt_generate_deploy_app_script(TARGET tambrix OUTPUT_SCRIPT deploy_script)
  endif()
  install(SCRIPT ${deploy_script}) # puts the Qt libraries beside the program
  set(CMAKE_INSTALL_SYSTEM_RUNTIME_DESTINATION ${TAMBRIX_FOLDER})
  include(InstallRequiredSystemLibraries) # MSVC's runtime: press PCs often lack it
endif()

set(CPACK_GENERATOR ZIP)
find_program(TAMBRIX_MAKENSIS makensis)
if(TAMBRIX_MAKENSIS)
  list(APPEND CPACK_GENERATOR NSIS)
endif()
# The installer's script is packaging/windows/NSIS.template.in.
set(CPACK_MODULE_PATH ${CMAKE_SOURCE_DIR}/packaging/windows)
set(CPACK_TAMBRIX_ICON ${CMAKE_SOURCE_DIR}/src/app/resources/tambrix.ico)
if(TAMBRIX_FOLDER STREQUAL ".")
  set(CPACK_TAMBRIX_PROGRAM "tambrix.exe")
else()
  set(CPACK_TAMBRIX_PROGRAM "${TAMBRIX_FOLDER}\\tambrix.exe")
endif()
