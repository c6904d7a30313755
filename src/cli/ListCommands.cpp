// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Arguments.h"
#include "cli/Commands.h"
#include "cli/Json.h"

#include "catalogue/CatalogueRows.h"
#include "catalogue/Dependencies.h"
#include "catalogue/LoadLists.h"
#include "support/basVorinString.h"

namespace turfdesk {

namespace {

Json CommonFields(const Row &row) {
  return {{"key", row.Key()},
          {"name", row.Text()},
          {"filename", row.SubItems(column::Filename)},
          {"size", std::strtoull(row.SubItems(column::Size).c_str(), nullptr, 10)}};
}

Json CourseFields(const Row &row) {
  Json fields = CommonFields(row);
  fields["libraries"] = ParseList(row.SubItems(column::Libraries));
  fields["picture"] = row.SubItems(column::Picture);
  fields["music"] = row.SubItems(column::Music);
  fields["video"] = row.SubItems(column::Video);
  fields["text"] = row.SubItems(column::Text);
  return fields;
}

Json FieldsOf(const ListView &list, Json (*fieldsOf)(const Row &)) {
  Json rows = Json::array();
  for (std::size_t i = 0; i < list.Count(); ++i)
    rows.push_back(fieldsOf(list.At(i)));
  return rows;
}

void PrintList(std::ostream &out, const char *title, const ListView &list) {
  out << title << " (" << list.Count() << ")\n";
  for (std::size_t i = 0; i < list.Count(); ++i) {
    const Row &row = list.At(i);
    out << "  " << ConsoleLine(row.Text()) << "\n      " << ConsoleLine(row.Key()) << "  "
        << FormatKB(row.SubItems(column::Size)) << "\n      " << ConsoleLine(row.SubItems(column::Filename)) << "\n";
  }
}

void PrintFields(std::ostream &out, const Json &fields) {
  for (const auto &[name, value] : fields.items()) {
    if (!value.is_array()) {
      out << name << ": " << (value.is_string() ? ConsoleLine(value.get<std::string>()) : value.dump()) << "\n";
      continue;
    }
    out << name << ":\n";
    for (const auto &entry : value)
      out << "  " << ConsoleLine(entry.get<std::string>()) << "\n";
  }
}

} // namespace

ExitStatus ListContent(CommandContext &context, const ListOptions &options) {
  LoadLists(context.state);
  if (context.json) {
    Json answer = Json::object();
    if (options.courses)
      answer["courses"] = FieldsOf(context.state.lstCourses, &CourseFields);
    if (options.libraries)
      answer["libraries"] = FieldsOf(context.state.lstLibraries, &CommonFields);
    context.out << DumpJson(answer) << "\n";
    return ReportAnswer(context);
  }
  if (options.courses)
    PrintList(context.out, "Courses", context.state.lstCourses);
  if (options.libraries)
    PrintList(context.out, "Libraries", context.state.lstLibraries);
  return ReportAnswer(context);
}

ExitStatus ShowContent(CommandContext &context, const std::string &name) {
  LoadLists(context.state);
  const ListView &courses = context.state.lstCourses;
  const ListView &libraries = context.state.lstLibraries;
  Json answer;
  if (IsNamed(courses, name) || !IsNamed(libraries, name)) {
    const Row *course = FindByKeyOrName(context, courses, name, "course or library");
    if (course != nullptr)
      answer["course"] = CourseFields(*course);
  } else if (const Row *library = FindByKeyOrName(context, libraries, name, "library")) {
    answer["library"] = CommonFields(*library);
    std::vector<std::string> users;
    ListCoursesUsingLibrary(courses, users, library->Key());
    answer["library"]["courses"] = users;
  }
  if (answer.empty())
    return ReportOperation(context, false, "");
  if (context.json)
    context.out << DumpJson(answer) << "\n";
  else
    PrintFields(context.out, answer.front());
  return ReportAnswer(context);
}

} // namespace turfdesk
