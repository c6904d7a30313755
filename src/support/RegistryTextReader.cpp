// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/RegistryTextReader.h"

#include "platform/CaseFold.h"
#include "support/RegistryValueReader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace turfdesk {

namespace {

constexpr std::array<std::string_view, 7> Roots = {
    "HKEY_LOCAL_MACHINE",  "HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",     "HKEY_USERS",
    "HKEY_CURRENT_CONFIG", "HKEY_DYN_DATA",     "HKEY_PERFORMANCE_DATA",
};

// What the registry allows. A name has up to 255 characters there, each up to three bytes of UTF-8.
constexpr std::ptrdiff_t GreatestDepth = 512;
constexpr std::size_t LongestKeyName = std::size_t{3} * 255;

constexpr const char *EarlierVersion =
    "The file is in version 4 of the format (REGEDIT4). The registry editor writes version 5 when its file type "
    "\"Registration Files\" is chosen.";
constexpr const char *UnknownVersion = "The file is in a version of the format other than 5.00.";
constexpr const char *NoHeader = "The file does not begin with \"Windows Registry Editor Version 5.00\".";
constexpr const char *NoKey = "A key stands in square brackets, with nothing but a comment behind them.";
constexpr const char *NoRoot = "The key does not begin with a root, such as HKEY_LOCAL_MACHINE.";
constexpr const char *EmptyName = "The path of the key has an empty name in it.";
constexpr const char *NameTooLong = "A name in the path of the key is too long.";
constexpr const char *TooDeep = "The path of the key has too many names in it.";
constexpr const char *AheadOfKeys = "A value stands ahead of the first key.";
constexpr const char *BelowDeleted = "A value stands below a key that is deleted.";

std::string_view WithoutBlanksAround(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  return text.substr(0, text.find_last_not_of(RegistryTextBlanks) + 1);
}

/// Why no key can have this path; null when one can.
const char *FaultOfPath(std::string_view path) {
  const std::string_view root = path.substr(0, path.find('\\'));
  if (std::none_of(Roots.begin(), Roots.end(),
                   [root](std::string_view known) { return EqualsIgnoringCase(known, root); }))
    return NoRoot;
  if (path.ends_with('\\') || path.find("\\\\") != std::string_view::npos)
    return EmptyName;
  for (std::size_t start = 0; start < path.size();) {
    const std::size_t end = std::min(path.find('\\', start), path.size());
    if (end - start > LongestKeyName)
      return NameTooLong;
    start = end + 1;
  }
  return std::count(path.begin(), path.end(), '\\') > GreatestDepth ? TooDeep : nullptr;
}

const char *FaultOfHeader(std::string_view header) {
  if (header == RegistryTextHeader)
    return nullptr;
  if (header == "REGEDIT4")
    return EarlierVersion;
  constexpr std::string_view anyVersion = RegistryTextHeader.substr(0, RegistryTextHeader.rfind(' ') + 1);
  return header.starts_with(anyVersion) ? UnknownVersion : NoHeader;
}

class Reader {
public:
  Reader(const ByteSource &source, const std::function<void(const RegistryStatement &)> &take)
      : mLines(source), mTake(take) {}

  std::vector<RegistryTextFault> Read() {
    if (!TakeHeader())
      return std::move(mFaults);
    while (mFaults.size() < MostRegistryTextFaults) {
      std::optional<RegistryTextLine> line = mLines.Next();
      if (!line)
        break;
      TakeLine(std::move(*line));
    }
    return std::move(mFaults);
  }

private:
  /// What the values of the lines that follow belong to.
  enum class Section { None, Key, DeletedKey, Unknown };

  bool TakeHeader() {
    RegistryTextLine line{1, "", "", nullptr};
    // An empty file has no line at all.
    while (const auto next = mLines.Next()) {
      line = *next;
      if (line.fault != nullptr || !WithoutBlanksAround(line.text).empty())
        break;
    }
    const char *fault = line.fault != nullptr ? line.fault : FaultOfHeader(WithoutBlanksAround(line.text));
    if (fault != nullptr)
      Report(line.number, fault);
    return fault == nullptr;
  }

  void TakeLine(RegistryTextLine line) {
    const std::string_view text = WithoutBlanksAround(line.text);
    if (line.fault != nullptr) {
      // It may have been a key.
      mSection = Section::Unknown;
      Report(line.number, line.fault);
    } else if (text.starts_with('[')) {
      TakeKey(line.number, text);
    } else if (!text.empty() && !text.starts_with(';')) {
      TakeValue(std::move(line));
    }
  }

  void TakeKey(std::size_t number, std::string_view text) {
    mSection = Section::Unknown;
    // A name may hold a bracket, so the last one ends the key.
    const std::size_t end = text.rfind(']');
    if (end == std::string_view::npos || !IsBlankOrComment(text.substr(end + 1))) {
      Report(number, NoKey);
      return;
    }
    std::string_view path = text.substr(1, end - 1);
    const bool isDeleted = path.starts_with('-');
    if (isDeleted)
      path.remove_prefix(1);
    if (path.ends_with('\\'))
      path.remove_suffix(1);
    if (const char *fault = FaultOfPath(path)) {
      Report(number, fault);
      return;
    }
    mSection = isDeleted ? Section::DeletedKey : Section::Key;
    mKey = path;
    mTake({isDeleted ? RegistryStatement::Kind::DeleteKey : RegistryStatement::Kind::Key, number, mKey, "", {}});
  }

  void TakeValue(RegistryTextLine line) {
    RegistryStatement statement;
    statement.line = line.number;
    statement.key = mKey;
    RegistryValueReader value(mLines, std::move(line));
    if (const char *fault = value.Read(statement))
      Report(value.FaultyLine(), fault);
    else if (mSection == Section::None)
      Report(statement.line, AheadOfKeys);
    else if (mSection == Section::DeletedKey)
      Report(statement.line, BelowDeleted);
    else if (mSection == Section::Key)
      mTake(statement);
  }

  void Report(std::size_t line, const char *words) { mFaults.push_back({line, words}); }

  RegistryTextLines mLines;
  const std::function<void(const RegistryStatement &)> &mTake;
  std::vector<RegistryTextFault> mFaults;
  Section mSection = Section::None;
  std::string mKey;
};

} // namespace

std::vector<RegistryTextFault> ReadRegistryText(const ByteSource &source,
                                                const std::function<void(const RegistryStatement &)> &take) {
  return Reader(source, take).Read();
}

RegistryText ParseRegistryText(std::span<const std::uint8_t> bytes) {
  const auto source = [&bytes](std::span<std::uint8_t> buffer) {
    const std::size_t count = std::min(buffer.size(), bytes.size());
    std::copy_n(bytes.begin(), count, buffer.begin());
    bytes = bytes.subspan(count);
    return count;
  };
  RegistryText text;
  text.faults =
      ReadRegistryText(source, [&text](const RegistryStatement &statement) { text.statements.push_back(statement); });
  return text;
}

} // namespace turfdesk
