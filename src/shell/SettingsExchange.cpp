// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "shell/SettingsExchange.h"

#include "catalogue/Catalogue.h"
#include "platform/CaseFold.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"
#include "shell/FileTypes.h"
#include "support/ErrorHandling.h"
#include "support/RegistryTextReader.h"
#include "support/RegistryTextWriter.h"
#include "support/StringTable.h"
#include "support/basVorinFile.h"
#include "support/basVorinString.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace turfdesk {

namespace {

constexpr std::string_view ClassesRoot = "HKEY_CLASSES_ROOT";
constexpr std::size_t MostValuesTold = 20;

/// Everything that is exchanged, in the order in which it is written.
std::vector<RegistryBranch> ExchangedBranches() {
  std::vector<RegistryBranch> branches = {
      {RegistryRoot::LocalMachine, std::string(BaseKey.substr(0, BaseKey.size() - 1))}};
  for (const FileType &type : FileTypes)
    branches.push_back({RegistryRoot::ClassesRoot, type.extension});
  return branches;
}

std::string FullPath(RegistryRoot root, const std::string &keyPath) {
  return AddBackslash(root == RegistryRoot::LocalMachine ? LocalMachine : ClassesRoot) + keyPath;
}

/// What is left of a path behind another that it begins with, name by name and without regard to case: "" when the two
/// are the same, nothing when it does not begin so.
std::optional<std::string_view> RestBehind(std::string_view path, std::string_view beginning) {
  for (;;) {
    const std::size_t length = std::min(path.find('\\'), path.size());
    const std::size_t expected = std::min(beginning.find('\\'), beginning.size());
    if (!EqualsIgnoringCase(path.substr(0, length), beginning.substr(0, expected)))
      return std::nullopt;
    path.remove_prefix(std::min(length + 1, path.size()));
    if (expected == beginning.size())
      return path;
    beginning.remove_prefix(expected + 1);
  }
}

/// Windows has places that 32-bit programs, and users, see under another name.
std::string PathAsSeenByPrograms(const std::string &path) {
  struct Alias {
    std::string_view place;
    std::string_view seenAs;
  };
  constexpr std::array aliases = {Alias{R"(HKEY_LOCAL_MACHINE\Software\WOW6432Node)", R"(HKEY_LOCAL_MACHINE\Software)"},
                                  Alias{R"(HKEY_LOCAL_MACHINE\Software\Classes)", ClassesRoot}};
  std::string seen = path;
  for (const Alias &alias : aliases)
    if (const auto rest = RestBehind(seen, alias.place); rest && !rest->empty())
      seen = AddBackslash(alias.seenAs) + std::string(*rest);
  return seen;
}

/// Makes the changes of the tree that a file asks for.
class ImportPlan {
public:
  ImportPlan() {
    for (const RegistryBranch &branch : ExchangedBranches())
      mPlaces.push_back({branch, FullPath(branch.root, branch.keyPath)});
  }

  void Take(const RegistryStatement &statement) {
    switch (statement.kind) {
    case RegistryStatement::Kind::Key:
    case RegistryStatement::Kind::DeleteKey:
      TakeKey(statement);
      break;
    case RegistryStatement::Kind::SetValue:
      TakeValue(RegistryChange::Kind::SetValue, statement, counts.valuesWritten);
      break;
    case RegistryStatement::Kind::DeleteValue:
      TakeValue(RegistryChange::Kind::DeleteValue, statement, counts.deletions);
      break;
    case RegistryStatement::Kind::SetOtherValue:
      SkipValue(statement);
      break;
    }
  }

  /// "" when no value of our keys was skipped.
  std::string SkippedValuesWords() const {
    if (counts.valuesSkipped == 0)
      return "";
    std::string words = "These values are neither texts nor numbers. They were skipped.\r\n" + mSkippedValues;
    if (counts.valuesSkipped > MostValuesTold)
      words += Newlines(1) + "And " + std::to_string(counts.valuesSkipped - MostValuesTold) + " more.";
    return words;
  }

  std::vector<RegistryChange> changes;
  ImportCounts counts;

private:
  struct Place {
    RegistryBranch branch;
    std::string fullPath;
  };

  void TakeKey(const RegistryStatement &statement) {
    mKey = Locate(PathAsSeenByPrograms(statement.key));
    if (!mKey) {
      ++counts.keysSkipped;
      return;
    }
    const bool isDeleted = statement.kind == RegistryStatement::Kind::DeleteKey;
    ++(isDeleted ? counts.deletions : counts.keys);
    AddChange(isDeleted ? RegistryChange::Kind::DeleteKey : RegistryChange::Kind::CreateKey, statement);
  }

  void TakeValue(RegistryChange::Kind kind, const RegistryStatement &statement, std::size_t &count) {
    if (!mKey)
      return;
    ++count;
    AddChange(kind, statement);
  }

  void SkipValue(const RegistryStatement &statement) {
    if (!mKey)
      return;
    ++counts.valuesSkipped;
    if (counts.valuesSkipped <= MostValuesTold)
      mSkippedValues += Newlines(1) + "Line " + std::to_string(statement.line) + ": " +
                        AsOneLine(statement.key + ", " + statement.valueName);
  }

  void AddChange(RegistryChange::Kind kind, const RegistryStatement &statement) {
    changes.push_back({kind, mKey->root, mKey->keyPath, statement.valueName, statement.data});
  }

  /// Where a key lies in the tree; nothing when it is none of ours.
  std::optional<RegistryBranch> Locate(const std::string &path) const {
    for (const Place &place : mPlaces)
      if (const auto rest = RestBehind(path, place.fullPath))
        return RegistryBranch{place.branch.root, rest->empty()
                                                     ? place.branch.keyPath
                                                     : AddBackslash(place.branch.keyPath) + std::string(*rest)};
    return std::nullopt;
  }

  std::vector<Place> mPlaces;
  /// The key whose values are being taken; nothing while they are skipped.
  std::optional<RegistryBranch> mKey;
  std::string mSkippedValues;
};

std::string FaultWords(const std::vector<RegistryTextFault> &faults) {
  std::string words = "Nothing has been imported.\r\n";
  for (const RegistryTextFault &fault : faults)
    words += Newlines(1) + "Line " + std::to_string(fault.line) + ": " + AsOneLine(fault.words);
  if (faults.size() == MostRegistryTextFaults)
    words += Newlines(1) + "What may follow was not read.";
  return words;
}

/// False when the file has malformed lines, which have been told.
bool ReadPlan(SharedState &state, const std::string &path, ImportPlan &plan) {
  const std::unique_ptr<BinaryFile> file = state.platform.Files().OpenForBinaryRead(path);
  if (!file)
    throw RuntimeError(ErrorNumber::FileNotFound);
  const auto faults = ReadRegistryText([&file](std::span<std::uint8_t> buffer) { return file->Read(buffer); },
                                       [&plan](const RegistryStatement &statement) { plan.Take(statement); });
  if (faults.empty())
    return true;
  ShowError(state, AsOneLine(path) + Newlines(2) + FaultWords(faults));
  return false;
}

void WriteFile(SharedState &state, const std::string &path, const std::string &bytes) {
  const std::unique_ptr<StagedFile> file = state.platform.NewFiles().Create(path, false);
  file->Write({reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size()});
  file->Commit(true);
}

bool MayBeWritten(SharedState &state, const std::string &path) {
  return !FileExists(state, path) ||
         AskYesNo(state, AsOneLine(path) + Newlines(2) + LoadResString(StringId::FileExistsReplace));
}

} // namespace

bool ReadSettingsText(SharedState &state, std::string &text) {
  return Guarded(state, "", [&] {
    RegistryTextWriter writer;
    for (const RegistryKeyContent &key : state.platform.Branches().Read(ExchangedBranches())) {
      writer.AddKey(FullPath(key.root, key.keyPath));
      for (const RegistryValue &value : key.values)
        writer.AddValue(value);
    }
    text = writer.Text();
  });
}

bool ExportSettings(SharedState &state, const std::string &path) {
  std::string text;
  if (!ReadSettingsText(state, text))
    return false;
  bool isWritten = false;
  Guarded(state, AsOneLine(path) + Newlines(2), [&] {
    if (!MayBeWritten(state, path))
      return;
    WriteFile(state, path, RegistryTextBytes(text));
    isWritten = true;
  });
  return isWritten;
}

bool ImportSettings(SharedState &state, const std::string &path, ImportCounts &counts) {
  ImportPlan plan;
  bool isSound = false;
  Guarded(state, AsOneLine(path) + Newlines(2), [&] { isSound = ReadPlan(state, path, plan); });
  if (!isSound || !Guarded(state, "", [&] { state.platform.Branches().Apply(plan.changes); }))
    return false;
  if (const std::string words = plan.SkippedValuesWords(); !words.empty())
    ShowInfo(state, AsOneLine(path) + Newlines(2) + words);
  counts = plan.counts;
  return true;
}

std::string ImportVerdict(const ImportCounts &counts) {
  std::string verdict = "Settings have been successfully imported: keys " + std::to_string(counts.keys) +
                        ", values written " + std::to_string(counts.valuesWritten) + ", deletions " +
                        std::to_string(counts.deletions) + ", other keys skipped " + std::to_string(counts.keysSkipped);
  if (counts.valuesSkipped > 0)
    verdict += ", values skipped " + std::to_string(counts.valuesSkipped);
  return verdict + ".";
}

std::string ExportVerdict() { return "Settings have been successfully exported."; }

} // namespace turfdesk
