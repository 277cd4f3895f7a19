# What "cmake --install" lays down: the library, its headers and package files,
# the command-line program and the catalogue. Nothing in it holds the
# prefix, so the installed tree can be moved.
option(ZU_INSTALL "Make the install rules" ${PROJECT_IS_TOP_LEVEL})
if(NOT ZU_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)

install(TARGETS zu_pj_edit EXPORT zu_pj_editTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/zu_pj_edit"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
if(ZU_BUILD_PROGRAMS)
  install(TARGETS zu_pj4 RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  # For a catalogue of the user's own.
  if(TARGET make_prj_def)
    install(TARGETS make_prj_def RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  endif()
  configure_file("${PROJECT_SOURCE_DIR}/man/zu_pj4.1.in" "${PROJECT_BINARY_DIR}/man/zu_pj4.1" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/man/zu_pj4.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endif()
# Windows libraries look for the catalogue beside themselves, and for PROJ's
# database, which is a part of them there.
if(WIN32)
  set(zu_catalogue_destination "${CMAKE_INSTALL_BINDIR}")
else()
  set(zu_catalogue_destination "${CMAKE_INSTALL_DATADIR}/zu_pj_edit")
endif()
install(DIRECTORY "${PROJECT_BINARY_DIR}/bin/prj_def" DESTINATION "${zu_catalogue_destination}")
if(WIN32)
  install(FILES "${ZU_PROJ_DB}" DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

set(zu_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/zu_pj_edit")
configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/zu_pj_editConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfig.cmake"
  INSTALL_DESTINATION "${zu_package_dir}")
# Before 1.0 every minor version may break.
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfig.cmake"
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfigVersion.cmake"
  DESTINATION "${zu_package_dir}")
install(EXPORT zu_pj_editTargets NAMESPACE zu_pj_edit:: DESTINATION "${zu_package_dir}")

file(RELATIVE_PATH zu_pc_to_prefix
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" zu_pc_to_prefix "${zu_pc_to_prefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/zu_pj_edit.pc.in"
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_edit.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/cmake/zu_pj_edit.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
