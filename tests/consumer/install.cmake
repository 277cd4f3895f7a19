# Installs into a scratch prefix and moves the result: what is found in the new
# place holds no path of the old one.
file(REMOVE_RECURSE "${prefix}" "${moved}")
execute_process(
  COMMAND "${CMAKE_COMMAND}" --install "${build}" --config "${config}" --prefix "${prefix}"
  COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${prefix}" "${moved}")

set(data share/zu_pj_edit)
set(database)
if(windows)
  set(data bin)
  set(database bin/proj.db)
endif()
foreach(file include/zu_pj_edit/zu_pj_edit.h include/zu_pj_edit/version.h
             ${data}/prj_def/pj_proj1.dbf ${data}/prj_def/pj_proj2.dbf
             ${data}/prj_def/pj_datum.dbf ${data}/prj_def/pj_ellps.dbf ${database})
  if(NOT EXISTS "${moved}/${file}")
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()
