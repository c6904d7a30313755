# SPDX-License-Identifier: MIT
# What a program that opens files of strangers needs against an attacker; scripts/check-hardening shows it on the built
# programs. Only optimised builds have it: fortified sources need an optimising compiler.
option(TURFDESK_HARDENING "Harden optimised builds" ON)

set(TURFDESK_HARDENED)
set(TURFDESK_HARDENED_LINK)
if(TURFDESK_HARDENING AND NOT MSVC) # which does the like unasked
  set(optimised $<CONFIG:RelWithDebInfo,Release,MinSizeRel>)
  if(WIN32)
    set(fortified 2)
    set(linked --dynamicbase,--high-entropy-va,--nxcompat)
  else()
    # Knows sizes that only the running program has, too. Position-independent programs are Debian's compilers' own default.
    set(fortified 3)
    set(linked -z,relro,-z,now)
  endif()
  set(TURFDESK_HARDENED "$<${optimised}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${fortified}>")
  # MinGW-w64 has the protector's routines in a library of their own, which this option links.
  set(TURFDESK_HARDENED_LINK "$<${optimised}:-fstack-protector-strong;LINKER:${linked}>")
endif()
