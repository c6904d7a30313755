# SPDX-License-Identifier: MIT
# The windows, each in the folder of its subsystem, and the program that shows them.
set(shell ${CMAKE_SOURCE_DIR}/src/shell)
set(install ${CMAKE_SOURCE_DIR}/src/install)

turfdesk_layer(
  td_forms
  SOURCES
  ${shell}/MainCommands.cpp
  ${shell}/frmTurfManager.cpp
  ${install}/frmCourseInstall.cpp
  ${install}/frmStatusInstall.cpp
  USES
  td_widgets
  td_shell
  td_install)
set_target_properties(td_forms PROPERTIES AUTOMOC ON AUTOUIC ON AUTOGEN_BUILD_DIR ${CMAKE_BINARY_DIR}/generated/forms)

set(assets ${CMAKE_SOURCE_DIR}/assets)
file(GLOB pictures CONFIGURE_DEPENDS ${assets}/background*.png ${assets}/icons/*.png)
qt_add_resources(td_forms pictures PREFIX "/" BASE ${assets} FILES ${pictures})

turfdesk_program(turfdesk SOURCES ${shell}/main.cpp USES td_forms td_system)
