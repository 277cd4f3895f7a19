# "cmake --install" installs four components. Each can be installed alone:
#   runtime      the shared library, the catalogue and, on Windows, PROJ's database
#   development  files to build a host: header, CMake package, pkg-config file
#   tools        zu_pj4 with its manual page, and make_prj_def
#   core         the static core with its headers, without a dialog
# No file holds the prefix, so the installed tree can be moved.
option(ZU_INSTALL "Make the install rules" ${PROJECT_IS_TOP_LEVEL})
if(NOT ZU_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)

install(TARGETS zu_pj_edit EXPORT zu_pj_editTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime
          NAMELINK_COMPONENT development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
set(zu_include_dir "${CMAKE_INSTALL_INCLUDEDIR}/zu_pj_edit")
install(FILES include/zu_pj_edit/zu_pj_edit.h include/zu_pj_edit/version.h
  DESTINATION "${zu_include_dir}" COMPONENT development)

# Headers of functions that only the static core has.
install(TARGETS zu_pj_core EXPORT zu_pj_coreTargets
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT core
  INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(FILES include/zu_pj_edit/zu_pj4_layer.h include/zu_pj_edit/geometry.h
              include/zu_pj_edit/string_adp.h
  DESTINATION "${zu_include_dir}" COMPONENT core)

if(ZU_BUILD_PROGRAMS)
  install(TARGETS zu_pj4 RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
  if(TARGET zu_pj4_edit)
    # zu_pj4 looks for it in its own folder. Its manual page is that of zu_pj4.
    install(TARGETS zu_pj4_edit RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
    file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/man/zu_pj4_edit.1" CONTENT ".so man1/zu_pj4.1\n")
    install(FILES "${PROJECT_BINARY_DIR}/man/zu_pj4_edit.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
      COMPONENT tools)
  endif()
  # Users make their own catalogue with it.
  if(TARGET make_prj_def)
    install(TARGETS make_prj_def RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
  endif()
  foreach(program zu_pj4 make_prj_def)
    configure_file("${PROJECT_SOURCE_DIR}/man/${program}.1.in" "${PROJECT_BINARY_DIR}/man/${program}.1" @ONLY)
    if(TARGET ${program})
      install(FILES "${PROJECT_BINARY_DIR}/man/${program}.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1"
        COMPONENT tools)
    endif()
  endforeach()
  if(NOT WIN32)
    install(FILES man/zu_pj4.bash DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
      RENAME zu_pj4 COMPONENT tools)
  endif()
endif()

# On Windows the library looks for the catalogue and for PROJ's database in its own folder.
if(WIN32)
  set(zu_catalogue_destination "${CMAKE_INSTALL_BINDIR}")
  install(FILES "${ZU_PROJ_DB}" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime)
else()
  set(zu_catalogue_destination "${CMAKE_INSTALL_DATADIR}/zu_pj_edit")
endif()
install(DIRECTORY "${PROJECT_BINARY_DIR}/bin/prj_def" DESTINATION "${zu_catalogue_destination}"
  COMPONENT runtime)

set(zu_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/zu_pj_edit")
configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/zu_pj_editConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfig.cmake"
  INSTALL_DESTINATION "${zu_package_dir}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfigVersion.cmake" COMPATIBILITY ${zu_compatibility})
# Both components have the package file. It finds the targets of the installed components.
foreach(component development core)
  install(FILES
    "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfig.cmake"
    "${PROJECT_BINARY_DIR}/cmake/zu_pj_editConfigVersion.cmake"
    DESTINATION "${zu_package_dir}" COMPONENT ${component})
endforeach()
install(EXPORT zu_pj_editTargets NAMESPACE zu_pj_edit:: DESTINATION "${zu_package_dir}"
  COMPONENT development)
install(EXPORT zu_pj_coreTargets NAMESPACE zu_pj_edit:: DESTINATION "${zu_package_dir}"
  COMPONENT core)

file(RELATIVE_PATH zu_pc_to_prefix
  "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" zu_pc_to_prefix "${zu_pc_to_prefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/zu_pj_edit.pc.in"
  "${PROJECT_BINARY_DIR}/cmake/zu_pj_edit.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/cmake/zu_pj_edit.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
