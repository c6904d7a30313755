# SPDX-License-Identifier: MIT
# turfdesk_windows_program(TARGET FILE-NAME DESCRIPTION EXECUTION-LEVEL): what a Windows program carries beside its code:
# its name, icon, version and manifest. Elsewhere it does nothing.
function(turfdesk_windows_program target fileName description executionLevel)
  if(NOT WIN32)
    return()
  endif()
  set(manifest ${CMAKE_BINARY_DIR}/generated/windows/${fileName}.manifest)
  set(resources ${CMAKE_BINARY_DIR}/generated/windows/${fileName}.rc)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.manifest.in ${manifest} @ONLY)
  configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${resources} @ONLY)
  target_sources(${target} PRIVATE ${resources})
  set_property(SOURCE ${resources} APPEND PROPERTY OBJECT_DEPENDS ${manifest})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${fileName})
  if(MSVC)
    # The linker would put in one of its own.
    target_link_options(${target} PRIVATE /MANIFEST:NO)
  endif()
endfunction()
