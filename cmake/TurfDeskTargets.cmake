# SPDX-License-Identifier: MIT
# One library for each layer, so that the link lines say who may use whom.

set(TURFDESK_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough)

function(turfdesk_settings target)
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_compile_options(${target} PRIVATE ${TURFDESK_WARNINGS})
  if(TURFDESK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# turfdesk_layer(NAME SOURCES ... USES ...)
function(turfdesk_layer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  turfdesk_settings(${name})
  target_link_libraries(${name} PUBLIC ${ARG_USES})
endfunction()

# turfdesk_program(NAME SOURCES ... USES ...)
function(turfdesk_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  turfdesk_settings(${name})
  target_link_libraries(${name} PRIVATE ${ARG_USES})
endfunction()

# turfdesk_test(NAME SOURCES ... USES ...): a GoogleTest program whose cases are single tests of CTest.
function(turfdesk_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;ENVIRONMENT" ${ARGN})
  turfdesk_program(${name} SOURCES ${ARG_SOURCES} USES ${ARG_USES} GTest::gtest_main)
  include(GoogleTest)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
