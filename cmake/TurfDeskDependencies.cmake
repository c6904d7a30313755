# SPDX-License-Identifier: MIT
# Finds the libraries, under the same target names on every system.
if(WIN32 AND CMAKE_CROSSCOMPILING AND NOT CMAKE_PREFIX_PATH)
  set(recipes libzip utf8proc headers)
  if(TURFDESK_TESTS)
    list(APPEND recipes googletest)
  endif()
  if(TURFDESK_GUI)
    list(APPEND recipes qtbase)
  endif()
  execute_process(COMMAND ${CMAKE_SOURCE_DIR}/scripts/windows-deps --cached ${recipes} OUTPUT_VARIABLE folders
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(CMAKE_PREFIX_PATH ${folders})
  list(APPEND CMAKE_FIND_ROOT_PATH ${folders})
endif()

find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(Threads REQUIRED)
if(WIN32)
  set(ZLIB_USE_STATIC_LIBS ON)
endif()
find_package(ZLIB REQUIRED)

if(WIN32)
  find_package(libzip CONFIG REQUIRED)
  add_library(turfdesk_libzip ALIAS libzip::zip)
  find_path(UTF8PROC_INCLUDE_DIR utf8proc.h REQUIRED)
  find_library(UTF8PROC_LIBRARY NAMES utf8proc_static utf8proc REQUIRED)
  add_library(turfdesk_utf8proc STATIC IMPORTED)
  set_target_properties(
    turfdesk_utf8proc PROPERTIES IMPORTED_LOCATION "${UTF8PROC_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${UTF8PROC_INCLUDE_DIR}"
                                 INTERFACE_COMPILE_DEFINITIONS UTF8PROC_STATIC)
else()
  # Debian's CMake file of libzip asks for programs of another package.
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(libzip REQUIRED IMPORTED_TARGET libzip)
  add_library(turfdesk_libzip ALIAS PkgConfig::libzip)
  pkg_check_modules(utf8proc REQUIRED IMPORTED_TARGET libutf8proc)
  add_library(turfdesk_utf8proc ALIAS PkgConfig::utf8proc)
  find_package(SQLite3 REQUIRED)
endif()
