// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/Main.h"
#include "cli/Commands.h"
#include "platform/CommandLine.h"
#include "platform/ShownText.h"
#include "platform/Terminal.h"
#include "support/basVorinString.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace turfdesk {

namespace {

struct GlobalOptions {
  std::string home;
  bool json = false;
  bool yes = false;
  bool no = false;
  bool ask = false;

  Answering AnsweringMode() const {
    if (yes)
      return Answering::AllYes;
    if (no)
      return Answering::AllNo;
    return ask || InputIsTerminal() ? Answering::Ask : Answering::AllNo;
  }
};

using Command = std::function<ExitStatus(CommandContext &)>;

/// Everything that the command line can say. Options are bound to members, so the object stays while parsing runs.
class CommandLine {
public:
  CommandLine() {
    mApp.require_subcommand(1);
    mApp.fallthrough();
    // Elsewhere whoever named one would change the settings of the system instead.
    if (HasHomeFolder())
      mApp.add_option("--home", options.home, "Folder that holds settings and drives");
    mApp.add_flag("--json", options.json, "Answer with one JSON object");
    auto *answers = mApp.add_option_group("answers", "Who answers the questions");
    answers->add_flag("--yes", options.yes, "Answer every question with Yes");
    answers->add_flag("--no", options.no, "Answer every question with No");
    answers->add_flag("--ask", options.ask, "Print each question and read a line from standard input");
    answers->require_option(0, 1);
    AddListCommands();
    AddWorkCommands();
    AddManageCommands();
    AddConvertCommands();
    AddTreeCommands();
  }

  CLI::App &App() { return mApp; }

  GlobalOptions options;
  Command command;

private:
  void AddListCommands() {
    auto *list = mApp.add_subcommand("list", "Print what is installed");
    auto *courses = list->add_flag("--courses", mOnlyCourses, "Courses only");
    list->add_flag("--libraries", mOnlyLibraries, "Libraries only")->excludes(courses);
    Bind(list, [this](CommandContext &context) {
      return ListContent(context, {.courses = !mOnlyLibraries, .libraries = !mOnlyCourses});
    });
    auto *show = mApp.add_subcommand("show", "Print what is known of one course or library");
    show->add_option("name", mName, "Key or name")->required();
    Bind(show, [this](CommandContext &context) { return ShowContent(context, mName); });
  }

  void AddWorkCommands() {
    auto *install = mApp.add_subcommand("install", "Install courses, libraries and packages");
    install->add_option("files", mInstall.files, "Host or Windows paths")->required();
    install->add_option("--to", mInstall.destination, "Folder to install to; without it each file's own folder");
    Bind(install, [this](CommandContext &context) { return InstallFiles(context, mInstall); });
    auto *compress = mApp.add_subcommand("compress", "Write a course with its media and libraries into a package");
    compress->add_option("course", mCompress.course, "Key or name")->required();
    compress->add_option("--output", mCompress.output, "The package; without it beside the course file");
    compress->add_option("--without", mCompress.without, "Key or name of a library to leave out")
        ->allow_extra_args(false);
    Bind(compress, [this](CommandContext &context) { return CompressCourse(context, mCompress); });
  }

  void AddManageCommands() {
    auto *uninstall = mApp.add_subcommand("uninstall", "Delete a course or library and its files");
    AddRow(uninstall);
    Bind(uninstall, [this](CommandContext &context) { return UninstallContent(context, mRow); });
    auto *move = mApp.add_subcommand("move", "Move the files of a course or library to another folder");
    AddRow(move);
    move->add_option("--to", mDestination, "The folder")->required();
    Bind(move, [this](CommandContext &context) { return MoveContent(context, mRow, mDestination); });
    auto *setMedia = mApp.add_subcommand("set-media", "Point a course at other media; \"\" at none");
    setMedia->add_option("course", mName, "Key or name")->required();
    setMedia->add_option("--picture", mMedia[0], "Its picture");
    setMedia->add_option("--music", mMedia[1], "Its music");
    setMedia->add_option("--text", mMedia[2], "Its text");
    Bind(setMedia, [this](CommandContext &context) { return SetMedia(context, mName, mMedia); });
    auto *clear = mApp.add_subcommand("clear-statistics", "Delete the game's statistics of a course");
    clear->add_option("course", mName, "Key or name")->required();
    Bind(clear, [this](CommandContext &context) { return ClearStatistics(context, mName); });
  }

  void AddConvertCommands() {
    auto *convert = mApp.add_subcommand("convert", "Convert and install a course of MF2001");
    convert->add_option("directory", mDirectory, "The folder that it lies in")->required();
    Bind(convert, [this](CommandContext &context) { return ConvertCourse(context, mDirectory); });
    Bind(mApp.add_subcommand("convert-quillon", "Start the converter for courses of Quillon 2000"),
         [](CommandContext &context) { return ConvertQuillonCourse(context); });
  }

  void AddRow(CLI::App *app) {
    app->add_option("name", mRow.name, "Key or name of a course or library")->required();
    app->add_flag("--library", mRow.library, "A library, also where a course has the same key or name");
  }

  void AddTreeCommands() {
    auto *settings = mApp.add_subcommand("settings", "The program's settings")->require_subcommand(1);
    Bind(settings->add_subcommand("list", "Print all"), [](CommandContext &context) { return ListSettings(context); });
    auto *get = settings->add_subcommand("get", "Print one");
    get->add_option("name", mName, "Its name")->required();
    Bind(get, [this](CommandContext &context) { return GetSetting(context, mName); });
    auto *set = settings->add_subcommand("set", "Change one");
    set->add_option("name", mName, "Its name")->required();
    set->add_option("value", mValue, "Its new value; behind -- when it begins with a dash")->required();
    Bind(set, [this](CommandContext &context) { return SetSetting(context, mName, mValue); });

    auto *tree = mApp.add_subcommand("tree", "The raw settings tree under HKEY_LOCAL_MACHINE")->require_subcommand(1);
    auto *treeGet = tree->add_subcommand("get", "Print a value");
    AddKeyAndName(treeGet);
    Bind(treeGet, [this](CommandContext &context) { return GetTreeValue(context, mKey, mName); });
    auto *treeSet = tree->add_subcommand("set", "Write a value, making its key");
    AddKeyAndName(treeSet);
    treeSet->add_option("value", mValue, "Its text; behind -- when it begins with a dash")->required();
    Bind(treeSet, [this](CommandContext &context) { return SetTreeValue(context, mKey, mName, mValue); });
    auto *keys = tree->add_subcommand("keys", "Print the subkeys of a key");
    keys->add_option("key", mKey, "Path of the key")->required();
    Bind(keys, [this](CommandContext &context) { return ListTreeKeys(context, mKey); });
    auto *deleteKey = tree->add_subcommand("delete", "Delete a key without subkeys");
    deleteKey->add_option("key", mKey, "Path of the key")->required();
    Bind(deleteKey, [this](CommandContext &context) { return DeleteTreeKey(context, mKey); });
    AddExchangeCommands(tree);
  }

  void AddExchangeCommands(CLI::App *tree) {
    auto *exportTree = tree->add_subcommand("export", "Write the game's settings as a registry editor's file");
    exportTree->add_option("file", mExportFile,
                           "Host or Windows path; without it the bytes of the file go to standard output");
    Bind(exportTree, [this](CommandContext &context) { return ExportTree(context, mExportFile); });
    auto *importTree = tree->add_subcommand("import", "Take the game's settings over from a registry editor's file");
    importTree->add_option("file", mImportFile, "Host or Windows path")->required();
    Bind(importTree, [this](CommandContext &context) { return ImportTree(context, mImportFile); });
  }

  void AddKeyAndName(CLI::App *app) {
    app->add_option("key", mKey, "Path of the key")->required();
    app->add_option("name", mName, "Name of the value; empty for the default value")->required();
  }

  void Bind(CLI::App *app, Command bound) {
    app->callback([this, bound = std::move(bound)] { command = bound; });
  }

  CLI::App mApp{"Looks after the add-on courses and libraries of Marrowfell 2002", "turfctl"};
  bool mOnlyCourses = false;
  bool mOnlyLibraries = false;
  std::string mName;
  std::string mValue;
  std::string mKey;
  std::string mDestination;
  std::string mDirectory;
  std::optional<std::string> mExportFile;
  std::string mImportFile;
  RowOptions mRow;
  MediaOptions mMedia;
  InstallOptions mInstall;
  CompressOptions mCompress;
};

ExitStatus RunCommand(Platform &platform, const GlobalOptions &options, const Command &command) {
  Transcript transcript;
  ConsoleStatusWindow window;
  ConsoleBoxes boxes(transcript, options.AnsweringMode(), std::cin, std::cerr, options.json ? nullptr : &std::cerr);
  ConsoleScreen screen(transcript, window, options.json ? nullptr : &std::cout);
  SharedState state(platform, boxes, screen);
  CommandContext context{state, window, transcript, std::cout, std::cerr, options.json};
  if (!Main(state, "")) {
    ReportOperation(context, false, "");
    return ExitStatus::NoServices;
  }
  platform.NoteCleanStart();
  return command(context);
}

ExitStatus Fail(bool json, const std::string &words, ExitStatus status) {
  if (json)
    std::cout << OperationJson({{{"error", "Turf Desk", words, "ok"}}, {}}, false, "") << std::endl;
  else
    std::cerr << ConsoleText(words) << std::endl;
  return status;
}

ExitStatus Run(const GlobalOptions &options, const Command &command) {
  std::unique_ptr<Platform> platform;
  try {
    platform = MakePlatform(options.home);
  } catch (const std::exception &error) {
    return Fail(options.json, error.what(), ExitStatus::NoServices);
  }
  try {
    return RunCommand(*platform, options, command);
  } catch (const std::exception &error) {
    return Fail(options.json, error.what(), ExitStatus::Failed);
  }
}

/// CLI11 speaks of what is missing, and not of the argument that it has taken for an option instead.
std::string UsageErrorWords(const CLI::App &app, const CLI::ParseError &error) {
  for (const std::string &argument : app.remaining())
    if (argument.starts_with('-') && argument != "--")
      return "There is no option " + AsOneLine(argument) + ". A text that begins with a dash is put behind --.";
  return AsOneLine(error.what());
}

/// Ends without a command: the user asked for help, or the arguments were wrong and have not been taken over.
ExitStatus EndParsing(const CLI::App &app, const CLI::ParseError &error, const std::vector<std::string> &arguments) {
  if (error.get_exit_code() == 0) {
    app.exit(error);
    return ExitStatus::Done;
  }
  const std::string words = UsageErrorWords(app, error);
  if (std::find(arguments.begin(), arguments.end(), "--json") != arguments.end())
    return Fail(true, words, ExitStatus::Usage);
  return Fail(false, words + Newlines(1) + "Run with --help for more information.", ExitStatus::Usage);
}

int RunTurfctl(const std::vector<std::string> &arguments) {
  CommandLine commandLine;
  try {
    // The library takes them off the end.
    commandLine.App().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError &error) {
    return static_cast<int>(EndParsing(commandLine.App(), error, arguments));
  }
  const ExitStatus status = Run(commandLine.options, commandLine.command);
  // A script must not take an answer that could not be written for a success.
  if (!std::cout.flush() && status == ExitStatus::Done) {
    std::cerr << "The answer could not be written." << std::endl;
    return static_cast<int>(ExitStatus::Failed);
  }
  return static_cast<int>(status);
}

} // namespace

} // namespace turfdesk

int main(int argc, char **argv) {
  turfdesk::UseUtf8Terminal();
  return turfdesk::RunTurfctl(turfdesk::CommandArguments(argc, argv));
}
