# SPDX-License-Identifier: MIT
# The windows, each in the folder of its subsystem, and the program that shows them.
set(shell ${CMAKE_SOURCE_DIR}/src/shell)
set(install ${CMAKE_SOURCE_DIR}/src/install)
set(conversion ${CMAKE_SOURCE_DIR}/src/conversion)
set(manage ${CMAKE_SOURCE_DIR}/src/manage)
set(packaging ${CMAKE_SOURCE_DIR}/src/packaging)

turfdesk_layer(
  td_forms
  SOURCES
  ${shell}/MainCommands.cpp
  ${shell}/ProgramIcon.cpp
  ${shell}/frmAbout.cpp
  ${shell}/frmTurfManager.cpp
  ${conversion}/dlgInvalidDir.cpp
  ${conversion}/dlgWaitConvert.cpp
  ${conversion}/frmCourseConvert.cpp
  ${install}/frmCourseInstall.cpp
  ${install}/frmStatusInstall.cpp
  ${manage}/frmCourseMove.cpp
  ${manage}/frmCourseProperties.cpp
  ${manage}/frmLibraryProperties.cpp
  ${manage}/frmStatusMove.cpp
  ${packaging}/dlgUncheckedLibs.cpp
  ${packaging}/frmCourseCompress.cpp
  ${packaging}/frmStatusCompress.cpp
  USES
  td_widgets
  td_shell
  td_conversion
  td_install
  td_manage
  td_packaging)
target_compile_definitions(td_forms PRIVATE TURFDESK_VERSION="${PROJECT_VERSION}")
set_target_properties(td_forms PROPERTIES AUTOMOC ON AUTOUIC ON AUTOGEN_BUILD_DIR ${CMAKE_BINARY_DIR}/generated/forms)

set(assets ${CMAKE_SOURCE_DIR}/assets)
file(GLOB pictures CONFIGURE_DEPENDS ${assets}/background*.png ${assets}/icons/*.png)
qt_add_resources(td_forms pictures PREFIX "/" BASE ${assets} FILES ${pictures})

turfdesk_program(turfdesk SOURCES ${shell}/turfdesk.cpp USES td_forms td_system)
target_compile_definitions(turfdesk PRIVATE TURFDESK_VERSION="${PROJECT_VERSION}")
# The settings of the game are the machine's, which only a raised program may change.
turfdesk_windows_program(turfdesk TurfDesk "Turf Desk" highestAvailable)
set_target_properties(turfdesk PROPERTIES WIN32_EXECUTABLE ON)
# The animation of the status windows lies beside the program.
add_dependencies(turfdesk working_avi)
