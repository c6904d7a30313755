// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "InputFile.h"
#include "RegistrySeeds.h"
#include "Target.h"

#include "catalogue/Catalogue.h"
#include "platform/CaseFold.h"
#include "shell/FileTypes.h"
#include "shell/SettingsExchange.h"
#include "support/RegistryTextReader.h"
#include "support/RegistryTextWriter.h"

#include <algorithm>
#include <array>

namespace turfdesk::fuzz {

namespace {

using Kind = RegistryChange::Kind;

/// A settings tree that holds the same before each import.
class Settings {
public:
  Settings() {
    AddExchanged(RegistryRoot::LocalMachine, std::string(BaseKey.substr(0, BaseKey.size() - 1)));
    for (const FileType &type : FileTypes)
      AddExchanged(RegistryRoot::ClassesRoot, type.extension);
    const RegistryData other{RegSz, 0, "other"};
    Branches().Apply(
        std::array{RegistryChange{Kind::SetValue, RegistryRoot::LocalMachine, "Software\\Other", "", other},
                   RegistryChange{Kind::SetValue, RegistryRoot::ClassesRoot, ".hl", "", other}});
    Require(Around().ends_with(".hl\n\t=other\n"), "the rest of the tree is looked at");
  }

  void Examine(std::span<const std::uint8_t> bytes) {
    Branches().Apply(mEmptied);
    Branches().Apply(mFilled);
    const std::string before = Exported();
    const std::string around = Around();
    const bool isImported = Import(bytes);
    const bool isInOrder = ParseRegistryText(bytes).faults.empty();
    Require(isImported == isInOrder, "a file is imported unless a line of it is malformed");
    const std::string after = Exported();
    Require(Around() == around, "nothing else in the tree changes");
    if (isImported)
      RequireReturn(after);
    else
      Require(after == before, "a failed import changes nothing");
  }

private:
  RegistryBranches &Branches() { return mInput.State().platform.Branches(); }

  void AddExchanged(RegistryRoot root, const std::string &keyPath) {
    mExchanged.push_back(FoldCase(keyPath));
    mEmptied.push_back({Kind::DeleteKey, root, keyPath, "", {}});
    mFilled.push_back({Kind::SetValue, root, keyPath + "\\Sub", "Name", {RegSz, 0, "before"}});
  }

  bool Import(std::span<const std::uint8_t> file) {
    mInput.Write(file);
    mInput.Boxes().shown.clear();
    ImportCounts counts;
    const bool isImported = ImportSettings(mInput.State(), mInput.Path(), counts);
    Require(isImported || !mInput.Boxes().shown.empty(), "a failure is told");
    return isImported;
  }

  std::string Exported() {
    std::string text;
    Require(ReadSettingsText(mInput.State(), text), "what has been imported can be exported");
    return text;
  }

  /// Carries an export to a tree without settings.
  void RequireReturn(const std::string &text) {
    Branches().Apply(mEmptied);
    const samples::Bytes file = samples::ToBytes(RegistryTextBytes(text));
    Require(Import(file) && Exported() == text, "an export can be imported and is the same then");
  }

  bool IsExchanged(const std::string &keyPath) const {
    const std::string folded = FoldCase(keyPath) + '\\';
    return std::any_of(mExchanged.begin(), mExchanged.end(),
                       [&folded](const std::string &branch) { return folded.starts_with(branch + '\\'); });
  }

  /// All keys and values that are not exchanged.
  std::string Around() {
    std::string text;
    for (const RegistryKeyContent &key : Branches().Read(std::array{RegistryBranch{RegistryRoot::LocalMachine, ""},
                                                                    RegistryBranch{RegistryRoot::ClassesRoot, ""}})) {
      if (IsExchanged(key.keyPath))
        continue;
      text += key.keyPath + '\n';
      for (const RegistryValue &value : key.values)
        text += '\t' + value.name + '=' + value.data.text + '\n';
    }
    return text;
  }

  InputFile mInput;
  std::vector<std::string> mExchanged;
  std::vector<RegistryChange> mEmptied;
  std::vector<RegistryChange> mFilled;
};

} // namespace

void Examine(std::span<const std::uint8_t> bytes) {
  static Settings settings;
  settings.Examine(bytes);
}

std::vector<samples::HostileFile> Seeds() { return RegistryFiles(); }

} // namespace turfdesk::fuzz
