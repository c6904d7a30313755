// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/LibraryRepair.h"

#include "platform/RuntimeError.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/RegistryPath.h"
#include "platform/windows/SystemFolder.h"
#include "platform/windows/WideText.h"

#include <exception>
#include <string>

namespace turfdesk {

namespace {

constexpr std::string_view settingsKey = R"(Software\KESTRAVON\Marrowfell 2002)";
constexpr std::string_view folderValue = "TurfManager";
constexpr std::string_view emptyLine = "\r\n\r\n";

void Tell(MessageBoxes &boxes, const std::string &text) {
  boxes.Show({text, "TurfDesk", BoxButtons::Ok, BoxIcon::None});
}

/// Throws RuntimeError, which says what is missing and where, when the settings name no folder.
std::string LibraryFolder() {
  RegistryKey key;
  RawValue value;
  std::uint32_t error = key.Open(RegistryRoot::LocalMachine, ToWide(settingsKey), KeyAccess::Read);
  if (error == RegistrySuccess)
    error = key.Read(ToWide(folderValue), value);
  if (error != RegistrySuccess && error != RegistryNotFound)
    ThrowRegistryError(error, RegistryRoot::LocalMachine, settingsKey);
  std::string folder;
  if (error == RegistrySuccess && value.type == RegSz)
    folder = TextOf(value);
  else if (error == RegistrySuccess && value.type == RegExpandSz)
    folder = ExpandedTextOf(value);
  if (folder.empty())
    throw RuntimeError(ErrorNumber::PathNotFound,
                       "The settings do not say in which folder the dll's are. They have not been restored." +
                           (std::string(emptyLine) + "HKEY_LOCAL_MACHINE\\") + std::string(settingsKey) + "\\" +
                           std::string(folderValue));
  return folder;
}

} // namespace

void RegisterLibraries(Processes &programs, MessageBoxes &boxes) {
  try {
    try {
      const std::string folder = LibraryFolder();
      Tell(boxes, folder);
      for (const char *library : {R"(\VorinRegistry.dll)", R"(\VorinLib.dll)"})
        programs.Shell(SystemFolder() + R"(\REGSVR32.EXE)", {folder + library}, WindowStyle::Hidden);
    } catch (const RuntimeError &error) {
      Tell(boxes, error.Description());
    }
  } catch (const std::exception &) {
    // The caller has told of the failure that led here.
  }
}

} // namespace turfdesk
