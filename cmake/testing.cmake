# How a test program is declared, and the surroundings in which ctest runs it.

include(GoogleTest)

# Everything is built for the compiler's own fuzzer, which then is the main program of
# quillmark_fuzz; without it a driver of ours is.
option(QUILLMARK_FUZZ "Build quillmark_fuzz for libFuzzer" OFF)
set(unusedFuzzMain entry)
if(QUILLMARK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
  set(unusedFuzzMain driver)
endif()

set(testEnvironment QT_QPA_PLATFORM=offscreen)
if(QUILLMARK_SANITIZE)
  list(APPEND testEnvironment
       UBSAN_OPTIONS=print_stacktrace=1
       LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/cmake/leaks.supp:print_suppressions=0)
endif()

# A test program is asked for its list of tests before any test property holds. One that creates
# its QApplication first needs the same surroundings there, so ctest itself takes them on.
set(environmentScript "")
foreach(setting IN LISTS testEnvironment)
  string(REGEX MATCH "^([^=]+)=(.*)$" whole "${setting}")
  string(APPEND environmentScript "set(ENV{${CMAKE_MATCH_1}} [==[${CMAKE_MATCH_2}]==])\n")
endforeach()
file(CONFIGURE OUTPUT test_environment.cmake CONTENT "${environmentScript}" @ONLY)
set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES
             "${CMAKE_CURRENT_BINARY_DIR}/test_environment.cmake")

# quillmark_tests(name SOURCES ... [LINK ...] [COST n] [TIMED filter]): a test program, every case of
# which is a test of ctest, in a process of its own; the cases run side by side, the costly ones
# first. Nothing runs beside the cases that the filter of GoogleTest picks: they measure time. The
# sources may bring a main.cpp of their own; it keeps the cases out of the folders of the person who
# runs them.
function(quillmark_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "COST;TIMED" "SOURCES;LINK")
  set(ownMain ${arg_SOURCES})
  list(FILTER ownMain INCLUDE REGEX "/main\\.cpp$")
  set(main GTest::gmock_main)
  if(ownMain)
    set(main GTest::gmock)
  endif()
  quillmark_program(${name} SOURCES ${arg_SOURCES} LINK ${arg_LINK} GTest::gtest ${main}
                    PRECOMPILE ${testHeaders})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  set(properties PROPERTIES ENVIRONMENT "${testEnvironment}" TIMEOUT 150 COST "0${arg_COST}")
  set(discovery DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
  if(NOT arg_TIMED)
    gtest_discover_tests(${name} ${discovery} ${properties})
    return()
  endif()
  gtest_discover_tests(${name} ${discovery} TEST_FILTER "-${arg_TIMED}" ${properties})
  gtest_discover_tests(${name} ${discovery} TEST_FILTER "${arg_TIMED}" TEST_LIST ${name}_TIMED
                       ${properties} RUN_SERIAL ON)
endfunction()

# quillmark_test_run(program NAME name ARGUMENTS ...): a program that is a test of ctest as a whole.
function(quillmark_test_run program)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME" "ARGUMENTS")
  target_include_directories(${program} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  add_test(NAME ${arg_NAME} COMMAND ${program} ${arg_ARGUMENTS})
  set_tests_properties(${arg_NAME} PROPERTIES ENVIRONMENT "${testEnvironment}" TIMEOUT 300
                       COST 100)
endfunction()
