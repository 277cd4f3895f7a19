# Cross-compiles for Windows x86-64 with Debian's MinGW-w64. CMake looks for libraries
# only under CMAKE_FIND_ROOT_PATH.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(zu_target x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${zu_target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${zu_target}-g++-posix)
set(CMAKE_RC_COMPILER ${zu_target}-windres)

# CMake takes only programs from the build machine.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The programs need no run-time library of the compiler.
set(zu_link_flags "-static -static-libgcc -static-libstdc++")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${zu_link_flags}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${zu_link_flags}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${zu_link_flags}")
