// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Commands.h"
#include "cli/Json.h"
#include "platform/ShownText.h"

namespace turfdesk {

ExitStatus ReportOperation(CommandContext &context, bool result, const std::string &verdict) {
  if (context.json)
    context.out << OperationJson(context.transcript, result, verdict) << "\n";
  else if (!verdict.empty())
    context.out << ConsoleLine(verdict) << "\n";
  return result ? ExitStatus::Done : ExitStatus::Failed;
}

std::string OperationJson(const Transcript &transcript, bool result, const std::string &verdict) {
  return DumpJson(OperationObject(transcript, result, verdict));
}

Json OperationObject(const Transcript &transcript, bool result, const std::string &verdict) {
  Json messages = Json::array();
  for (const auto &message : transcript.messages)
    messages.push_back({{"kind", message.kind},
                        {"title", message.title},
                        {"text", WithoutMarks(message.text)},
                        {"answer", message.answer}});
  Json steps = Json::array();
  for (const auto &step : transcript.steps)
    steps.push_back({{"file", step.file}, {"route", step.route}});
  return {{"result", result}, {"verdict", verdict}, {"messages", messages}, {"steps", steps}};
}

ExitStatus ReportAnswer(CommandContext &context) {
  // For a person the messages have been printed as they came.
  if (context.json)
    for (const auto &message : context.transcript.messages)
      context.errors << ConsoleText(message.text) << "\n";
  return context.transcript.HasErrors() ? ExitStatus::Failed : ExitStatus::Done;
}

} // namespace turfdesk
