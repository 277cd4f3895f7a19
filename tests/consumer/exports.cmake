# The shared library's dynamic symbols, against the two it is meant to export.
execute_process(COMMAND "${nm}" -D --defined-only --format=just-symbols "${library}"
  OUTPUT_VARIABLE symbols OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" symbols "${symbols}")
list(SORT symbols)
set(expected zu_proj4_form_execute zu_proj4_form_execute_w)
if(NOT symbols STREQUAL expected)
  message(FATAL_ERROR "exported: ${symbols}; expected: ${expected}")
endif()
