// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/StartConverter.h"

#include "catalogue/BaseValues.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "support/Prompts.h"
#include "support/basVorinString.h"

namespace turfdesk {

std::string ConverterPath(SharedState &state, std::string_view fileName) {
  std::string path = ReadBaseValue(state, TurfManagerValue);
  // Unlike AddBackslash also after an empty value: a bare file name would be looked for who knows where.
  if (!path.ends_with('\\'))
    path += '\\';
  return path.append(fileName);
}

std::uint32_t StartConverter(SharedState &state, const std::string &path, const std::vector<std::string> &arguments,
                             WindowStyle style) {
  try {
    return state.platform.Programs().Shell(path, arguments, style);
  } catch (const RuntimeError &error) {
    ShowError(state,
              "Unable to start the converter." + Newlines(2) + AsOneLine(path) + Newlines(2) + error.Description());
    return 0;
  }
}

} // namespace turfdesk
