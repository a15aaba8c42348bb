# How our own code is compiled: language, warnings, sanitizers, precompiled headers, and the two
# functions by which CMakeLists.txt declares a library or a program.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# Debug builds run the whole suite many times a day: a little optimisation pays for itself.
set(CMAKE_CXX_FLAGS_DEBUG "-Og -g")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

option(QUILLMARK_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
option(QUILLMARK_COVERAGE "Count which lines run (GCC)" OFF)
option(QUILLMARK_PRECOMPILE "Precompile the headers that most files include" ON)

if(QUILLMARK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

if(QUILLMARK_COVERAGE)
  # The port's thread counts as well, so the counters are atomic.
  add_compile_options(--coverage -fprofile-abs-path -fprofile-update=atomic)
  add_link_options(--coverage)
endif()

find_program(ccacheProgram ccache)
if(ccacheProgram)
  # With precompiled headers ccache can only help when it may trust their time stamps.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      "${ccacheProgram}")
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

set(standardHeaders <algorithm> <array> <chrono> <cstdint> <filesystem> <functional> <map>
                    <memory> <optional> <string> <string_view> <utility> <vector>)
set(qtBaseHeaders <QObject> <QString> <QTimer>)
set(qtHeaders <QApplication> <QDialog> <QLayout> <QMainWindow> <QObject> <QString> <QTimer>
              <QVariant> <QWidget>)
set(testHeaders ${standardHeaders} <gmock/gmock.h> <gtest/gtest.h>)

set(ourWarnings
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Werror
    # g++ 12 sees an overlap in every `"text" + std::string` once it has inlined it.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # And a write past the end of strings that it has inlined.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>
    $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow>
    # And a read past the end of what it builds of a part and "...", in a program built for speed.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-stringop-overread>
    # Its flow analysis is led astray by the sanitizers' own branches.
    $<$<AND:$<BOOL:${QUILLMARK_SANITIZE}>,$<CXX_COMPILER_ID:GNU>>:-Wno-maybe-uninitialized>
    # INSTANTIATE_TEST_SUITE_P and MATCHER leave the variable part of their macros empty.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>)

# What every library and program of ours has in common.
function(quillmark_compile target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;PRECOMPILE")
  target_compile_options(${target} PRIVATE ${ourWarnings})
  target_link_libraries(${target} PUBLIC ${arg_LINK})
  if(QUILLMARK_PRECOMPILE AND arg_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${arg_PRECOMPILE})
  endif()
endfunction()

# quillmark_library(name SOURCES ... [LINK ...] [PRECOMPILE ...]): a static library.
function(quillmark_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;PRECOMPILE")
  add_library(${name} STATIC ${arg_SOURCES})
  quillmark_compile(${name} LINK ${arg_LINK} PRECOMPILE ${arg_PRECOMPILE})
endfunction()

# quillmark_program(name SOURCES ... [LINK ...] [PRECOMPILE ...]): a program in the build folder.
function(quillmark_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;PRECOMPILE")
  add_executable(${name} ${arg_SOURCES})
  quillmark_compile(${name} LINK ${arg_LINK} PRECOMPILE ${arg_PRECOMPILE})
endfunction()

# quillmark_uses_qt(target [RESOURCES] [FORMS form.ui...]): moc and rcc for a target, uic for its
# forms. The resources belong to programs: the linker would drop them from a static library.
function(quillmark_uses_qt target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "RESOURCES" "" "FORMS")
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON AUTORCC ON
    AUTOGEN_ORIGIN_DEPENDS OFF)  # no generator reads what a library of ours has built
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_FOREACH)

  # Generated code is not ours to mend.
  set(generated "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen")
  target_include_directories(${target} SYSTEM PRIVATE "${generated}/include")
  set_source_files_properties("${generated}/mocs_compilation.cpp" PROPERTIES COMPILE_OPTIONS -w)

  if(arg_RESOURCES)
    target_sources(${target} PRIVATE "${CMAKE_SOURCE_DIR}/src/qt/resources.qrc")
  endif()
  if(arg_FORMS)
    quillmark_forms(${target} ${arg_FORMS})
  endif()
endfunction()

# quillmark_forms(target form.ui...): turns each form into ui_NAME.h, for the sources of that target.
# AUTOUIC is not used: it declares another path for these headers than the one it writes to, so the
# build does not see that a header is new, and the program gets a changed form one build too late.
# A rule for each header names the file that it writes. The target <target>_forms makes them alone.
function(quillmark_forms target)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}_forms")
  file(MAKE_DIRECTORY "${folder}")
  # What AUTOUIC left in a build folder of before would be found first.
  file(GLOB old "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include/ui_*.h")
  if(old)
    file(REMOVE ${old})
  endif()
  foreach(form IN LISTS ARGN)
    cmake_path(GET form STEM name)
    set(header "${folder}/ui_${name}.h")
    add_custom_command(OUTPUT "${header}" DEPENDS "${form}" VERBATIM
                       COMMAND Qt6::uic --output "${header}" "${form}"
                       COMMENT "Making ui_${name}.h")
    list(APPEND headers "${header}")
  endforeach()
  set_source_files_properties(${headers} PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${headers})
  target_include_directories(${target} SYSTEM PRIVATE "${folder}")
  add_custom_target(${target}_forms DEPENDS ${headers})
  add_dependencies(${target} ${target}_forms)
endfunction()
