# CPack adds scripts that call ldconfig to a package with a library. The trigger in the package
# already does that, once for all packages of a run. This file removes the scripts and packs
# again: smaller, with files of root and with the time of the source.
find_program(dpkg_deb dpkg-deb REQUIRED)
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(folder "${package}.folder")
  file(REMOVE_RECURSE "${folder}")
  execute_process(COMMAND "${dpkg_deb}" --raw-extract "${package}" "${folder}"
    COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE "${folder}/DEBIAN/postinst" "${folder}/DEBIAN/postrm")
  execute_process(
    COMMAND "${dpkg_deb}" --root-owner-group -Zxz --build "${folder}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${folder}")
endforeach()
