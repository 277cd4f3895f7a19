# Installs into a scratch prefix and moves the result: what is found in the new
# place holds no path of the old one. The static core is installed alone, elsewhere.
function(install_components target)
  file(REMOVE_RECURSE "${prefix}" "${target}")
  foreach(component IN LISTS ARGN)
    execute_process(COMMAND "${CMAKE_COMMAND}" --install "${build}" --config "${config}"
        --prefix "${prefix}" --component ${component}
      COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  file(RENAME "${prefix}" "${target}")
endfunction()
install_components("${moved}_core" core)
install_components("${moved}" runtime development tools)

set(data share/zu_pj_edit)
set(database)
if(windows)
  set(data bin)
  set(database proj.db)
endif()
foreach(file prj_def/pj_proj1.dbf prj_def/pj_proj2.dbf prj_def/pj_datum.dbf prj_def/pj_ellps.dbf
             ${database})
  if(NOT EXISTS "${moved}/${data}/${file}")
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()

# A header without its library is of no use.
foreach(folder "${moved}" "${moved}_core")
  file(GLOB headers RELATIVE "${folder}/include/zu_pj_edit" "${folder}/include/zu_pj_edit/*")
  string(APPEND found "${headers} ")
endforeach()
if(NOT found STREQUAL "version.h;zu_pj_edit.h geometry.h;string_adp.h;zu_pj4_layer.h ")
  message(FATAL_ERROR "other headers are installed: ${found}")
endif()
