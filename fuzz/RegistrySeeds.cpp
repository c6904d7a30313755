// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "RegistrySeeds.h"

#include "support/RegistryTextLines.h"
#include "support/Utf16.h"

namespace turfdesk::fuzz {

namespace {

/// What stands behind the header of a file, each a whole one that is in order.
constexpr std::pair<const char *, const char *> Bodies[] = {
    {"nothing", ""},
    {"catalogue", R"(
[HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002]
"InstallDir"="C:\\Games\\Marrowfell 2002"
"Number"=dword:0000002a

[HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002\Courses\{00112233-4455-6677-8899-AABBCCDDEEFF}]
@="default"
"Name"="Åsgård \"Links\""
"Filename"="C:\\Golf\\Elm.hlc" ; where it lies

[HKEY_CLASSES_ROOT\.hlc]
@="hlcfile"
)"},
    {"deletions", R"(
[HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002\Courses\Old]
"Name"="gone soon"
@=-
"Name"=-
[-HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002\Courses\Old]
[-HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002]
)"},
    {"bytes", R"(
[HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002]
"Text"=hex(1):61,00,62,00,00,00
"Expanded"=hex(2):25,00,54,00,25,00,\
  00,00
"Number"=hex(4):01,02,03,04
"Torn"=hex(1):61,00,d8
"Binary"=hex:de,ad , be,ef ; comment
"Other"=hex(7):
"Empty"=hex(1):
)"},
    {"lines-in-text", "[HKEY_CLASSES_ROOT\\.hlb]\n\"two\nlines\"=\"three\r\nlines\n\\\\here\"\n"},
    {"other-keys", R"(
[HKEY_CURRENT_USER\Software\Other]
"x"="y"
[HKEY_LOCAL_MACHINE\Software\WOW6432Node\KESTRAVON\Marrowfell 2002\]
"x"="y"
[hkey_local_machine\software\classes\.HLZ]
"x"="y"
[HKEY_LOCAL_MACHINE\Software\KESTRAVON\Marrowfell 2002x]
"x"="y"
)"},
    {"names", "[HKEY_CLASSES_ROOT\\.hlc\\a]b[c]d\\ e ]\n\"\"=\"\"\n\"=\"=\";\"\n\" \"=dword:fFfFfFfF\n"},
    {"twice", "[HKEY_CLASSES_ROOT\\.hlc]\n\"Stra\xC3\x9F"
              "e\"=\"a\"\n\"STRASSE\"=dword:1\n\"stra\xC3\x9F"
              "e\"=\"b\"\n"},
};

/// Lines below a key that are not in order, or stand where they may not.
constexpr std::pair<const char *, const char *> Faults[] = {
    {"not-closed", "\"a\"=\"b\n\"c\"=\"d\"\n"},
    {"not-escaped", "\"a\"=\"C:\\Games\"\n"},
    {"no-value", "\"a\"=\n\"b\"\n=\n"},
    {"no-name", "a=b\n"},
    {"bad-number", "\"a\"=dword:123456789\n\"b\"=dword:\n\"c\"=dword:-1\n"},
    {"bad-bytes", "\"a\"=hex:1,2,345\n\"b\"=hex(1):61,\\\n  62,x,\\\n  63\n"},
    {"open-end", "\"a\"=hex:01,\\"},
    {"bad-keys", "[HKEY_NOWHERE\\x]\n[HKEY_CLASSES_ROOT\\\\x]\n[HKEY_CLASSES_ROOT\\x\n[]\n[-]\n"},
    {"below-deleted", "[-HKEY_CLASSES_ROOT\\.hlc\\x]\n\"a\"=\"b\"\n"},
    {"no-utf-8", "\"\xC3\x28\"=\"b\"\n"},
};

void Add(std::vector<samples::HostileFile> &files, const std::string &name, const std::string &text) {
  files.push_back({name + ".reg", samples::ToBytes(text), true});
  if (const auto utf16 = Utf16FromUtf8(text))
    files.push_back({name + "-utf16.reg", samples::ToBytes("\xFF\xFE" + *utf16), true});
}

} // namespace

std::vector<samples::HostileFile> RegistryFiles() {
  const std::string header = std::string(RegistryTextHeader) + "\r\n";
  std::vector<samples::HostileFile> files;
  for (const auto &[name, body] : Bodies)
    Add(files, name, header + body);
  for (const auto &[name, lines] : Faults)
    Add(files, name, header + "[HKEY_CLASSES_ROOT\\.hlc]\r\n" + lines);
  Add(files, "key-no-utf-8", header + "[HKEY_CLASSES_ROOT\\\xC3]\r\n\"a\"=\"b\"\n");
  Add(files, "ahead-of-keys", header + "\"a\"=\"b\"\n");
  Add(files, "with-mark", "\xEF\xBB\xBF" + header);
  Add(files, "version-4", "REGEDIT4\n\n[HKEY_CLASSES_ROOT\\.hlc]\n");
  Add(files, "empty", "");
  return files;
}

} // namespace turfdesk::fuzz
