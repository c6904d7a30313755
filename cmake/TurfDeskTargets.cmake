# SPDX-License-Identifier: MIT
# One library for each layer, so that the link lines say who may use whom.
include(TurfDeskHardening)

if(MSVC)
  set(TURFDESK_WARNINGS /W4 /permissive- /utf-8)
  set(TURFDESK_WARNINGS_AS_ERRORS /WX)
else()
  set(TURFDESK_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough)
  set(TURFDESK_WARNINGS_AS_ERRORS -Werror)
endif()

function(turfdesk_settings target)
  target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_compile_options(${target} PRIVATE ${TURFDESK_WARNINGS} ${TURFDESK_HARDENED})
  target_link_options(${target} PRIVATE ${TURFDESK_HARDENED_LINK})
  if(TURFDESK_WERROR)
    target_compile_options(${target} PRIVATE ${TURFDESK_WARNINGS_AS_ERRORS})
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

# turfdesk_test(NAME SOURCES ... USES ... ENVIRONMENT ...): a GoogleTest program whose cases are single tests of CTest.
# On Windows the whole program is one: all its cases share a registry and a drive C:, so none may run beside another, and
# to start a process takes long there.
function(turfdesk_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;ENVIRONMENT" ${ARGN})
  turfdesk_program(${name} SOURCES ${ARG_SOURCES} USES ${ARG_USES} GTest::gtest_main)
  if(NOT MSVC)
    # What is tested is optimised; optimising the tests too would take half of their compile time.
    target_compile_options(${name} PRIVATE -O0 -U_FORTIFY_SOURCE)
  endif()
  if(WIN32)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON TIMEOUT 1800 ENVIRONMENT "${ARG_ENVIRONMENT}")
  else()
    include(GoogleTest)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 ENVIRONMENT "${ARG_ENVIRONMENT}")
  endif()
endfunction()
