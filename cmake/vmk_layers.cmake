# Compiler settings shared by every target, and the functions that declare layers and tests.

add_library(vmk_options INTERFACE)
if(MSVC)
  target_compile_options(vmk_options INTERFACE /W4 /WX /permissive- /utf-8 /Zc:__cplusplus)
else()
  target_compile_options(
    vmk_options
    INTERFACE -Wall
              -Wextra
              -Wconversion
              -Wshadow
              -Werror
              -Wimplicit-fallthrough)
  # The same commit gives the same bytes wherever it is built.
  target_compile_options(vmk_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
                                               -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
endif()

if(WIN32)
  target_compile_definitions(
    vmk_options
    INTERFACE UNICODE
              _UNICODE
              STRICT
              NOMINMAX
              WIN32_LEAN_AND_MEAN
              WINVER=0x0601
              _WIN32_WINNT=0x0601)
endif()
if(MINGW)
  target_compile_options(vmk_options INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(vmk_options INTERFACE -static -Wl,--gc-sections -Wl,--no-insert-timestamp)
endif()

# vmk_compile_as_product(TARGET)
#
# Gives the target the options that only what is shipped is compiled with.
function(vmk_compile_as_product target)
  if(NOT MSVC)
    # No extensions of one compiler in what is shipped.
    target_compile_options(${target} PRIVATE -Wpedantic)
  endif()
  if(VMK_SYMBOLS)
    target_compile_options(${target} PRIVATE -g)
  endif()
endfunction()

# What most sources for Windows include is parsed once, except where each source is to be looked at by itself.
if(WIN32 AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/layer_headers.cpp CONTENT "")
  add_library(vmk_layer_headers OBJECT ${PROJECT_BINARY_DIR}/layer_headers.cpp)
  target_link_libraries(vmk_layer_headers PRIVATE vmk_options)
  target_precompile_headers(
    vmk_layer_headers
    PRIVATE
    <windows.h>
    <algorithm>
    <array>
    <memory>
    <optional>
    <span>
    <string>
    <string_view>
    <utility>
    <vector>)
  # With the options of the sources, or it is refused.
  vmk_compile_as_product(vmk_layer_headers)
endif()

# Tests, benchmarks and fuzzers stand outside the house and may look into every room.
add_library(vmk_test_options INTERFACE)
target_link_libraries(vmk_test_options INTERFACE vmk_options)
target_include_directories(vmk_test_options INTERFACE ${PROJECT_SOURCE_DIR})

# vmk_let_include(TARGET SCOPE FOLDER [HEADERS file...])
#
# Lets the target include the headers of a folder of the project as "FOLDER/...", and with the scope PUBLIC or
# INTERFACE whoever links the target; with HEADERS these only. There is no other way to them: what is not let in does
# not compile.
function(vmk_let_include target scope folder)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "HEADERS")
  set(root ${PROJECT_BINARY_DIR}/include_roots/${folder})
  set(links ${folder})
  if(arg_HEADERS)
    string(APPEND root _public)
    list(TRANSFORM arg_HEADERS PREPEND ${folder}/ OUTPUT_VARIABLE links)
    file(MAKE_DIRECTORY ${root}/${folder})
  else()
    file(MAKE_DIRECTORY ${root})
  endif()
  foreach(link IN LISTS links)
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${link} ${root}/${link} COPY_ON_ERROR SYMBOLIC)
  endforeach()
  target_include_directories(${target} ${scope} ${root})
endfunction()

# vmk_add_layer(NAME [SOURCES file...] [WINDOWS_SOURCES file...] [PUBLIC_HEADERS file...] [DEPENDS target...])
#
# One folder, one layer, one static library called vmk_NAME. DEPENDS names the layers below it: it can include their
# headers and what they can include themselves, and no others. Of a layer with PUBLIC_HEADERS these are all that others
# can include. WINDOWS_SOURCES are left out on the build machine.
# Every header stands alone: a source includes its own header first, and one without a source is compiled by itself
# when tests are built.
function(vmk_add_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;WINDOWS_SOURCES;PUBLIC_HEADERS;DEPENDS")
  set(sources ${arg_SOURCES})
  if(WIN32)
    list(APPEND sources ${arg_WINDOWS_SOURCES})
  endif()

  if(sources)
    add_library(vmk_${name} STATIC ${sources})
    set(scope PUBLIC)
    vmk_compile_as_product(vmk_${name})
    if(TARGET vmk_layer_headers)
      target_precompile_headers(vmk_${name} REUSE_FROM vmk_layer_headers)
    endif()
  else()
    add_library(vmk_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_link_libraries(vmk_${name} ${scope} vmk_options ${arg_DEPENDS})
  if(arg_PUBLIC_HEADERS)
    vmk_let_include(vmk_${name} PRIVATE ${name})
    vmk_let_include(vmk_${name} INTERFACE ${name} HEADERS ${arg_PUBLIC_HEADERS})
  else()
    vmk_let_include(vmk_${name} ${scope} ${name})
  endif()
  set_property(GLOBAL APPEND PROPERTY VMK_LAYERS ${name})

  if(WIN32 AND BUILD_TESTING)
    file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    set(checks)
    foreach(header IN LISTS headers)
      string(REGEX REPLACE "h$" "cpp" source ${PROJECT_SOURCE_DIR}/${header})
      if(EXISTS ${source})
        continue()
      endif()
      set(check ${PROJECT_BINARY_DIR}/header_checks/${header}.cpp)
      file(CONFIGURE OUTPUT ${check} CONTENT "#include \"${header}\"\n")
      list(APPEND checks ${check})
    endforeach()
    if(checks)
      add_library(vmk_${name}_headers OBJECT ${checks})
      target_link_libraries(vmk_${name}_headers PRIVATE vmk_${name})
      vmk_let_include(vmk_${name}_headers PRIVATE ${name})
    endif()
  endif()
endfunction()

# vmk_split_symbols(TARGET FILE)
#
# Strips the target's file and leaves what a debugger needs in FILE.debug beside it. The file points to the other, and
# both hold the same build id. Dates are those of linking: that of the header is none, which objcopy would stamp.
function(vmk_split_symbols target file)
  target_link_options(${target} PRIVATE -Wl,--build-id)
  add_custom_command(
    TARGET ${target}
    POST_BUILD
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --only-keep-debug ${file} ${file}.debug
    COMMAND ${CMAKE_OBJCOPY} --preserve-dates --strip-all --add-gnu-debuglink=${file}.debug ${file}
    BYPRODUCTS ${file}.debug
    VERBATIM)
endfunction()

# vmk_define_version(TARGET)
#
# Gives the target's sources, resource scripts among them, the version in the four parts that Windows counts in: as
# VMK_VERSION_NUMBERS with commas and as VMK_VERSION with dots.
function(vmk_define_version target)
  set(version ${PROJECT_VERSION}.0)
  string(REPLACE "." "," numbers ${version})
  target_compile_definitions(${target} PRIVATE "VMK_VERSION_NUMBERS=${numbers}" VMK_VERSION=${version})
endfunction()

# vmk_keep_link_map(TARGET FILE)
#
# Leaves the linker's account of what it has put into the file in FILE.map: packages say by it whose code they hold.
function(vmk_keep_link_map target file)
  if(MINGW)
    target_link_options(${target} PRIVATE -Wl,-Map=${file}.map)
  endif()
endfunction()

# vmk_add_tests(NAME SOURCES file... [LIBRARIES target...] [TIMEOUT seconds])
#
# One executable NAME_test of GoogleTest sources, and one ctest entry per source file, named NAME.<file without
# _test>, which runs the suites that the file declares. Under Wine each entry is a process of its own, so a crash
# fails one entry only. Suites called DoubleByte... want another code page than the usual one; their own entry is up to
# the caller.
function(vmk_add_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LIBRARIES")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()

  add_executable(${name}_test ${arg_SOURCES})
  target_link_libraries(${name}_test PRIVATE vmk_test_options ${arg_LIBRARIES} GTest::gmock_main)
  # Tests are compiled more often than they are waited for, and linked without the layers' symbols for debuggers.
  target_compile_options(${name}_test PRIVATE -O0 ${VMK_TEST_PORT})
  if(TARGET vmk_test_headers)
    target_precompile_headers(${name}_test REUSE_FROM vmk_test_headers)
  endif()
  if(MINGW)
    target_link_options(${name}_test PRIVATE -Wl,--strip-debug)
  endif()
  set_target_properties(${name}_test PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
  set_property(
    DIRECTORY
    APPEND
    PROPERTY CMAKE_CONFIGURE_DEPENDS ${arg_SOURCES})

  foreach(source IN LISTS arg_SOURCES)
    file(STRINGS ${source} lines REGEX "^(TYPED_)?TEST(_F|_P)?\\(")
    set(suites)
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^(TYPED_)?TEST(_F|_P)?\\(([A-Za-z0-9_]+).*" "\\3" suite "${line}")
      list(APPEND suites ${suite}.* */${suite}.* ${suite}/*.*)
    endforeach()
    if(NOT suites)
      continue()
    endif()
    list(REMOVE_DUPLICATES suites)
    list(JOIN suites ":" filter)
    get_filename_component(base ${source} NAME_WE)
    string(REGEX REPLACE "_test$" "" base ${base})
    add_test(NAME ${name}.${base} COMMAND ${name}_test --gtest_brief=1 --gtest_filter=${filter}:-DoubleByte*)
    set_tests_properties(
      ${name}.${base}
      PROPERTIES TIMEOUT ${arg_TIMEOUT} FAIL_REGULAR_EXPRESSION "from 0 test suites ran|Running 0 tests")
  endforeach()
endfunction()
