// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/windows/CommandLineText.h"

#include "platform/windows/WideText.h"

namespace turfdesk {

namespace {

bool NeedsQuotes(std::wstring_view argument) {
  return argument.empty() || argument.find_first_of(L" \t\n\v\"") != std::wstring_view::npos;
}

/// A backslash means itself, but in front of a quote two mean one; so those at the end are doubled, too, since the
/// closing quote follows them.
std::wstring Quoted(std::wstring_view argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"')
      quoted.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, L'\\').append(L"\"");
}

} // namespace

std::wstring CommandLineText(std::wstring_view program, const std::vector<std::string> &arguments) {
  // No path holds a quote, and in the program's name a backslash always means itself.
  std::wstring text = L"\"" + std::wstring(program) + L"\"";
  for (const std::string &argument : arguments) {
    const std::wstring wide = ToWide(argument);
    text.append(L" ").append(NeedsQuotes(wide) ? Quoted(wide) : wide);
  }
  return text;
}

} // namespace turfdesk
