# The rules that every target of this tree is built by.

set(VELORIA_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # 2026-11-21: g++ 12 sees overlapping copies in "literal" + std::string at -O3 (its bug 105329).
  # clang-tidy reads the same flags and must be told to pass over the one it does not know.
  list(APPEND VELORIA_WARNINGS -Wno-restrict -Wno-unknown-warning-option)
endif()

add_library(veloria_rules INTERFACE)
target_include_directories(veloria_rules INTERFACE "${CMAKE_SOURCE_DIR}/src")
target_compile_options(veloria_rules INTERFACE ${VELORIA_WARNINGS}
  # The renderer's samples are compared with a literal computation: no fused multiply-add behind our back.
  -ffp-contract=off)
if(VELORIA_SANITIZE)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # 2026-11-21: with its own sanitizers' checks in the way g++ 12 no longer sees that values are set.
    target_compile_options(veloria_rules INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_options(veloria_rules INTERFACE -fsanitize=${VELORIA_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer -g1)
  target_link_options(veloria_rules INTERFACE -fsanitize=${VELORIA_SANITIZE})
endif()

# veloria_library(NAME SOURCES ... LINK ...): one library per folder of src/.
function(veloria_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC veloria_rules ${arg_LINK})
endfunction()

# What all test programs are compiled with. One precompiled header serves them all, and it fits only objects with the
# same definitions and options: SDL's flags define _REENTRANT, so every test does. What a test computes for itself is
# compiled in half the time with the plain optimisations; the code under test keeps its own.
function(veloria_test_rules target)
  target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}")
  target_compile_definitions(${target} PRIVATE _REENTRANT)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
  target_link_libraries(${target} PRIVATE veloria_rules GTest::gtest)
endfunction()

include(GoogleTest)

# veloria_test(NAME SOURCES ... LINK ...): one test program per folder of tests/, one ctest entry for each of its tests.
function(veloria_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(test_${name} ${arg_SOURCES})
  target_link_libraries(test_${name} PRIVATE ${arg_LINK} test_main)
  veloria_test_rules(test_${name})
  target_precompile_headers(test_${name} REUSE_FROM test_precompiled)
  gtest_discover_tests(test_${name} TEST_PREFIX "${name}." WORKING_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}"
    DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 300)
endfunction()
