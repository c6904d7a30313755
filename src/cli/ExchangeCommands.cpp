// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Arguments.h"
#include "cli/Commands.h"
#include "cli/Json.h"

#include "platform/Terminal.h"
#include "shell/SettingsExchange.h"
#include "support/RegistryTextWriter.h"

namespace turfdesk {

namespace {

ExitStatus PrintSettings(CommandContext &context) {
  std::string text;
  if (!ReadSettingsText(context.state, text))
    return ReportOperation(context, false, "");
  if (context.json) {
    context.out << DumpJson({{"text", text}}) << "\n";
  } else if (OutputIsTerminal()) {
    context.out << ConsoleText(text);
  } else {
    MakeOutputBinary();
    context.out << RegistryTextBytes(text);
  }
  return ExitStatus::Done;
}

} // namespace

ExitStatus ExportTree(CommandContext &context, const std::optional<std::string> &file) {
  if (!file)
    return PrintSettings(context);
  const std::string path = TakePath(context.state, *file);
  const bool isExported = !path.empty() && ExportSettings(context.state, path);
  return ReportOperation(context, isExported, isExported ? ExportVerdict() : "");
}

ExitStatus ImportTree(CommandContext &context, const std::string &file) {
  const std::string path = TakePath(context.state, file);
  ImportCounts counts;
  const bool isImported = !path.empty() && ImportSettings(context.state, path, counts);
  const std::string verdict = isImported ? ImportVerdict(counts) : "";
  if (!context.json)
    return ReportOperation(context, isImported, verdict);
  Json answer = OperationObject(context.transcript, isImported, verdict);
  answer["keys"] = counts.keys;
  answer["written"] = counts.valuesWritten;
  answer["deleted"] = counts.deletions;
  answer["skipped"] = counts.keysSkipped;
  answer["skippedValues"] = counts.valuesSkipped;
  context.out << DumpJson(answer) << "\n";
  return isImported ? ExitStatus::Done : ExitStatus::Failed;
}

} // namespace turfdesk
