# The Debian packages. "cpack -G DEB" makes them of the installed components. ./package-debian
# configures this with Debian's compiler flags.
option(ZU_DEBIAN "Make the rules of the Debian packages" OFF)
if(NOT ZU_DEBIAN)
  return()
endif()

# The name of the package has the name and number of the library that programs are linked with.
get_target_property(zu_soversion zu_pj_edit SOVERSION)
set(zu_debian_runtime "libzu-pj-edit${zu_soversion}")
set(zu_debian_development libzu-pj-edit-dev)
set(zu_debian_tools zu-pj4)
set(zu_debian_revision 1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zu-pj-edit)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_VENDOR "zu_pj_edit maintainers")
set(CPACK_PACKAGE_CONTACT "zu_pj_edit maintainers <maintainers@zu-pj-edit.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/package")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE zu-pj-edit)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${zu_debian_revision})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(zu_this_version "(= ${PROJECT_VERSION}-${zu_debian_revision})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${zu_debian_runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# The library loads GDAL itself, so the list of its libraries does not have it.
execute_process(COMMAND dpkg-query --show "--showformat=\${Depends}" libgdal-dev
  OUTPUT_VARIABLE zu_gdal_package COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCH "libgdal[0-9]+" zu_gdal_package "${zu_gdal_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS ${zu_gdal_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_LIST_DIR}/debian/triggers")
# All versions of the library have the catalogue in the same place. So only one version can be
# installed at a time. A package never conflicts with what it provides itself.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_PROVIDES libzu-pj-edit-catalogue)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONFLICTS libzu-pj-edit-catalogue)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_REPLACES libzu-pj-edit-catalogue)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"dialog that edits coordinate-system definitions
A desktop GIS calls this library with a PROJ.4 definition. The user picks a
projection or a zone, its parameters, a datum and an ellipsoid, and the
program gets the edited definition. The dialog loads and saves .pj4 files and
ESRI's .prj files, and it finds a system by name, code or region.
.
The package also holds the catalogue of projections, datums and ellipsoids.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${zu_debian_development})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${zu_debian_runtime} ${zu_this_version}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"dialog that edits coordinate-system definitions (development files)
A desktop GIS calls the library with a PROJ.4 definition, and the user edits
it in a dialog.
.
The package holds the C header, the link to the library, and the files by
which CMake and pkg-config find it.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${zu_debian_tools})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION science)
# The catalogue is in that package.
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${zu_debian_runtime} ${zu_this_version}")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
"coordinate-system definitions on the command line
zu_pj4 reads, edits, converts and writes coordinate-system definitions:
PROJ.4 strings, ESRI WKT, EPSG codes, .pj4 and .prj files. It finds systems by
words, code or place, transforms coordinates, and tells what a definition
loses on its way. It also opens the dialog of libzu-pj-edit.
.
make_prj_def makes the tables of the catalogue from CSV files.")

# Each package has its copyright and its changes.
set(zu_debian_dir "${PROJECT_BINARY_DIR}/debian")
# The files get the time of the source, so the same source gives the same bytes.
string(TIMESTAMP zu_debian_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file("${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in" "${zu_debian_dir}/changelog.Debian" @ONLY)
configure_file(CHANGELOG.md "${zu_debian_dir}/changelog" COPYONLY)
find_program(ZU_GZIP gzip REQUIRED)
execute_process(COMMAND "${ZU_GZIP}" -9nf "${zu_debian_dir}/changelog.Debian" "${zu_debian_dir}/changelog"
  COMMAND_ERROR_IS_FATAL ANY)
foreach(component runtime development tools)
  install(FILES "${CMAKE_CURRENT_LIST_DIR}/debian/copyright"
                "${zu_debian_dir}/changelog.Debian.gz" "${zu_debian_dir}/changelog.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${zu_debian_${component}}" COMPONENT ${component})
endforeach()

# Debian compresses manual pages. Install rules run in order, so this must be the last one.
install(CODE "
  file(GLOB_RECURSE pages \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/*.1\")
  execute_process(COMMAND \"${ZU_GZIP}\" -9nf \${pages} COMMAND_ERROR_IS_FATAL ANY)"
  COMPONENT tools)

set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/debian/finish.cmake")
include(CPack)
