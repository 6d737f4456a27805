# 64-bit Windows with clang. Headers, libraries and binary tools are those of MinGW-w64 GCC, whose folder has a name on
# Debian that clang does not look for.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)

set(target x86_64-w64-mingw32)
set(CMAKE_C_COMPILER clang)
set(CMAKE_C_COMPILER_TARGET ${target})
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET ${target})
set(CMAKE_OBJCOPY ${target}-objcopy)

execute_process(
  COMMAND ${target}-g++ -print-libgcc-file-name
  OUTPUT_VARIABLE libgcc
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc ${libgcc} DIRECTORY)
set(CMAKE_CXX_FLAGS_INIT "-isystem ${gcc}/include/c++ -isystem ${gcc}/include/c++/${target}")
foreach(kind IN ITEMS EXE MODULE SHARED)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT -L${gcc})
endforeach()
