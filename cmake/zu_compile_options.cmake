# Warnings and sanitizers for every target of this tree.
add_library(zu_options INTERFACE)
if(WIN32)
  target_compile_definitions(zu_options INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()
if(MSVC)
  target_compile_options(zu_options INTERFACE /W4 /utf-8 $<$<BOOL:${ZU_WARNINGS_AS_ERRORS}>:/WX>)
else()
  target_compile_options(zu_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual>
    # GCC 12 warns about overlaps in joined strings that cannot happen (its bug 105329).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${ZU_WARNINGS_AS_ERRORS}>:-Werror>)
  if(WIN32)
    # The linker leaves out unused code.
    target_compile_options(zu_options INTERFACE -ffunction-sections -fdata-sections)
    target_link_options(zu_options INTERFACE LINKER:--gc-sections)
    # The same sources give the same bytes at any time.
    target_link_options(zu_options INTERFACE LINKER:--no-insert-timestamp)
  endif()
  # The same sources give the same bytes in any folder, so clones can share them through ccache.
  # Release builds on Linux contain no path, and gcov needs real paths.
  if(NOT ZU_COVERAGE AND (WIN32 OR NOT CMAKE_BUILD_TYPE STREQUAL "Release"))
    target_compile_options(zu_options INTERFACE "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")
  endif()
  if(ZU_SANITIZE)
    target_compile_options(zu_options INTERFACE -fsanitize=address,undefined
                           -fno-sanitize-recover=undefined -fno-omit-frame-pointer
                           # With sanitizers GCC 12 warns that parts of std::regex are not set.
                           $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(zu_options INTERFACE -fsanitize=address,undefined)
  endif()
  if(ZU_FUZZ)
    target_compile_options(zu_options INTERFACE -fsanitize=fuzzer-no-link)
  endif()
endif()
