// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "cli/Arguments.h"
#include "cli/Commands.h"

#include "catalogue/LoadLists.h"
#include "conversion/RunLayoutConverter.h"
#include "conversion/RunQuillonConverter.h"
#include "support/ErrorHandling.h"

namespace turfdesk {

namespace {

/// A box and a line in place of the windows of a conversion.
class ConsoleConversion final : public ConversionWindows {
public:
  ConsoleConversion(CommandContext &context, const std::string &folder) : mContext(context), mFolder(folder) {}

  void ShowInvalidDirectory() override {
    mContext.state.boxes.Show({InvalidDirectoryText, InvalidDirectoryCaption, BoxButtons::Ok, BoxIcon::Stop});
  }
  void ShowWait() override {
    mContext.window.FileLabel().SetCaption(mFolder);
    mContext.window.RouteLabel().SetCaption(ConversionWaitText);
    mContext.state.screen.DoEvents();
  }
  void RefreshAll() override {}
  void HideWait() override {}
  void UnloadForm() override {}
  void RefreshMain() override {}

private:
  CommandContext &mContext;
  std::string mFolder;
};

} // namespace

ExitStatus ConvertCourse(CommandContext &context, const std::string &directory) {
  SharedState &state = context.state;
  LoadLists(state);
  bool converted = false;
  Guarded(state, ConvertLabel, [&] {
    const std::string folder = TakeFolder(state, directory);
    if (folder.empty())
      return;
    const std::size_t fileCount = state.platform.Folders().Files(folder, ConvertiblePattern).size();
    ConsoleConversion windows(context, folder);
    converted = RunLayoutConverter(state, {folder, fileCount}, windows);
  });
  return ReportOperation(context, converted, "");
}

ExitStatus ConvertQuillonCourse(CommandContext &context) {
  return ReportOperation(context, RunQuillonConverter(context.state), "");
}

} // namespace turfdesk
