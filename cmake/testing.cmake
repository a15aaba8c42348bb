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

# No test may see or touch the folders of the person who runs it.
set(testHome "${CMAKE_BINARY_DIR}/test-home")
file(MAKE_DIRECTORY "${testHome}/config" "${testHome}/data" "${testHome}/cache"
     "${testHome}/runtime")
file(CHMOD "${testHome}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

set(testEnvironment
    QT_QPA_PLATFORM=offscreen
    XDG_CONFIG_HOME=${testHome}/config
    XDG_DATA_HOME=${testHome}/data
    XDG_CACHE_HOME=${testHome}/cache
    XDG_RUNTIME_DIR=${testHome}/runtime)
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

# quillmark_tests(name SOURCES ... [LINK ...] [LOCK name]): a test program, every case of which is
# a test of ctest. Cases with the same LOCK never run at the same time. The sources may bring a
# main.cpp of their own.
function(quillmark_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "LOCK" "SOURCES;LINK")
  set(ownMain ${arg_SOURCES})
  list(FILTER ownMain INCLUDE REGEX "/main\\.cpp$")
  set(main GTest::gmock_main)
  if(ownMain)
    set(main GTest::gmock)
  endif()
  quillmark_program(${name} SOURCES ${arg_SOURCES} LINK ${arg_LINK} GTest::gtest ${main}
                    PRECOMPILE ${testHeaders})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  set(properties ENVIRONMENT "${testEnvironment}" TIMEOUT 150)
  if(arg_LOCK)
    list(APPEND properties RESOURCE_LOCK ${arg_LOCK})
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                       PROPERTIES ${properties})
endfunction()

# quillmark_test_run(program NAME name ARGUMENTS ...): a program that is a test of ctest as a whole.
function(quillmark_test_run program)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "NAME" "ARGUMENTS")
  target_include_directories(${program} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  add_test(NAME ${arg_NAME} COMMAND ${program} ${arg_ARGUMENTS})
  set_tests_properties(${arg_NAME} PROPERTIES ENVIRONMENT "${testEnvironment}" TIMEOUT 300)
endfunction()
