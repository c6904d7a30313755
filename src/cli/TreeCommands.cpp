// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Commands.h"
#include "cli/Json.h"

#include "catalogue/BaseValues.h"
#include "catalogue/Catalogue.h"
#include "platform/CaseFold.h"
#include "platform/ShownText.h"
#include "support/ErrorHandling.h"
#include "support/basVorinRegistry.h"

#include <algorithm>

namespace turfdesk {

namespace {

void Print(CommandContext &context, const Json &answer, const std::string &text) {
  if (context.json)
    context.out << DumpJson(answer) << "\n";
  else
    context.out << ConsoleText(text);
}

const BaseValue *FindBaseValue(CommandContext &context, const std::string &name) {
  const auto *found = std::find_if(BaseValues.begin(), BaseValues.end(),
                                   [&name](const BaseValue &value) { return EqualsIgnoringCase(value.name, name); });
  if (found != BaseValues.end())
    return found;
  ShowError(context.state, "There is no setting of this name." + Newlines(2) + AsOneLine(name));
  return nullptr;
}

/// Runs a body whose run-time errors are shown, and reports it as an operation.
template <typename Body> ExitStatus Operation(CommandContext &context, Body &&body) {
  bool result = false;
  Guarded(context.state, "", [&] { result = body(); });
  return ReportOperation(context, result, "");
}

bool WriteValue(SharedState &state, std::string_view key, std::string_view name, std::string_view value) {
  if (SetRegistryValue(state, LocalMachine, key, name, value))
    return true;
  ShowError(state, GetRegistryError(state));
  return false;
}

} // namespace

ExitStatus ListSettings(CommandContext &context) {
  Json answer = Json::object();
  std::string text;
  const bool read = Guarded(context.state, "", [&] {
    for (const BaseValue &value : BaseValues) {
      const std::string content = ReadBaseValue(context.state, value);
      answer[std::string(value.name)] = content;
      text += std::string(value.name) + "=" + AsOneLine(content) + "\n";
    }
  });
  if (!read)
    return ReportOperation(context, false, "");
  Print(context, {{"settings", answer}}, text);
  return ExitStatus::Done;
}

ExitStatus GetSetting(CommandContext &context, const std::string &name) {
  const BaseValue *value = FindBaseValue(context, name);
  std::string content;
  if (value == nullptr || !Guarded(context.state, "", [&] { content = ReadBaseValue(context.state, *value); }))
    return ReportOperation(context, false, "");
  Print(context, {{"name", value->name}, {"value", content}}, AsOneLine(content) + "\n");
  return ExitStatus::Done;
}

ExitStatus SetSetting(CommandContext &context, const std::string &name, const std::string &value) {
  return Operation(context, [&] {
    const BaseValue *found = FindBaseValue(context, name);
    return found != nullptr && WriteValue(context.state, BaseKey, found->name, value);
  });
}

ExitStatus GetTreeValue(CommandContext &context, const std::string &key, const std::string &name) {
  std::string content;
  bool found = false;
  const bool read = Guarded(context.state, "", [&] {
    found = RegistryValueExists(context.state, LocalMachine, key, name);
    content = GetRegistryValue(context.state, LocalMachine, key, name, "");
    if (!found)
      ShowError(context.state,
                "There is no value of this name." + Newlines(2) + AsOneLine(key) + Newlines(1) + AsOneLine(name));
  });
  if (!read || !found)
    return ReportOperation(context, false, "");
  Print(context, {{"key", key}, {"name", name}, {"value", content}}, AsOneLine(content) + "\n");
  return ExitStatus::Done;
}

ExitStatus SetTreeValue(CommandContext &context, const std::string &key, const std::string &name,
                        const std::string &value) {
  return Operation(context, [&] { return WriteValue(context.state, key, name, value); });
}

ExitStatus ListTreeKeys(CommandContext &context, const std::string &key) {
  StringList names;
  bool found = false;
  const bool read = Guarded(context.state, "", [&] {
    found = RegistryKeyExists(context.state, LocalMachine, key);
    names = GetSubkeys(context.state, LocalMachine, key);
    if (!found)
      ShowError(context.state, "There is no such key." + Newlines(2) + AsOneLine(key));
  });
  if (!read || !found)
    return ReportOperation(context, false, "");
  std::string text;
  for (const std::string &name : names)
    text += AsOneLine(name) + "\n";
  Print(context, {{"key", key}, {"keys", names}}, text);
  return ExitStatus::Done;
}

ExitStatus DeleteTreeKey(CommandContext &context, const std::string &key) {
  return Operation(context, [&] {
    SharedState &state = context.state;
    if (!RegistryKeyExists(state, LocalMachine, key)) {
      ShowError(state, "There is no such key." + Newlines(2) + AsOneLine(key));
      return false;
    }
    if (DeleteRegistryKey(state, LocalMachine, key))
      return true;
    ShowError(state, GetRegistryError(state));
    return false;
  });
}

} // namespace turfdesk
