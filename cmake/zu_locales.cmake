# Locales for the tests, made at test time into the build tree. A test that runs
# in one of them takes these properties:
#   FIXTURES_REQUIRED zu_locales ENVIRONMENT LOCPATH=${ZU_LOCALES_DIR}
set(ZU_LOCALES_DIR "${PROJECT_BINARY_DIR}/locales")
if(NOT CMAKE_HOST_WIN32)
  add_test(NAME set_up.locales
           COMMAND "${PROJECT_SOURCE_DIR}/scripts/make_locales" "${ZU_LOCALES_DIR}")
  set_tests_properties(set_up.locales PROPERTIES FIXTURES_SETUP zu_locales TIMEOUT 120)
endif()
