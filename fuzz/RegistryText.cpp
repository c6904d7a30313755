// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "RegistrySeeds.h"
#include "Target.h"

#include "platform/CaseFold.h"
#include "support/RegistryTextReader.h"
#include "support/RegistryTextWriter.h"
#include "support/Utf16.h"

#include <algorithm>
#include <tuple>

namespace turfdesk::fuzz {

namespace {

RegistryText Parse(std::string_view bytes) {
  return ParseRegistryText({reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size()});
}

bool IsText(std::string_view text) { return IsUtf8(text) && text.find('\0') == std::string_view::npos; }

void RequireOrder(const RegistryText &text) {
  const auto precedes = [](const auto &left, const auto &right) { return left.line < right.line; };
  Require(std::is_sorted(text.faults.begin(), text.faults.end(), precedes), "faults come in the order of their lines");
  Require(std::is_sorted(text.statements.begin(), text.statements.end(), precedes), "statements come in their order");
  Require(text.faults.size() <= MostRegistryTextFaults, "there are no more faults than can be told");
  for (const RegistryTextFault &fault : text.faults)
    Require(fault.line > 0 && fault.words.ends_with('.'), "a fault says where and what");
}

void RequireSense(const RegistryStatement &statement) {
  const std::string &key = statement.key;
  Require(IsText(key) && FoldCase(key).starts_with("hkey_"), "a key begins with a root");
  Require(!key.ends_with('\\') && key.find("\\\\") == std::string::npos, "no name in a key is empty");
  Require(IsText(statement.valueName) && IsText(statement.data.text), "what is read as text is text");
  Require(statement.data.type == RegSz || statement.data.type == RegDword, "a value is of a known type");
}

/// What an export can hold: keys and their values.
std::vector<RegistryStatement> Lasting(const RegistryText &text) {
  std::vector<RegistryStatement> lasting;
  std::copy_if(text.statements.begin(), text.statements.end(), std::back_inserter(lasting), [](const auto &statement) {
    return statement.kind == RegistryStatement::Kind::Key || statement.kind == RegistryStatement::Kind::SetValue;
  });
  return lasting;
}

std::string Write(const std::vector<RegistryStatement> &statements) {
  RegistryTextWriter writer;
  for (const RegistryStatement &statement : statements) {
    if (statement.kind == RegistryStatement::Kind::Key)
      writer.AddKey(statement.key);
    else
      writer.AddValue({statement.valueName, statement.data});
  }
  return writer.Text();
}

/// Do two files say the same, in whichever lines?
bool SaySame(const std::vector<RegistryStatement> &left, const std::vector<RegistryStatement> &right) {
  const auto content = [](const RegistryStatement &statement) {
    const RegistryData &data = statement.data;
    return std::tie(statement.kind, statement.key, statement.valueName, data.type, data.number, data.text);
  };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](const auto &one, const auto &other) { return content(one) == content(other); });
}

} // namespace

void Examine(std::span<const std::uint8_t> bytes) {
  const RegistryText text = ParseRegistryText(bytes);
  RequireOrder(text);
  for (const RegistryStatement &statement : text.statements)
    RequireSense(statement);
  if (!text.faults.empty())
    return;
  const std::vector<RegistryStatement> lasting = Lasting(text);
  const std::string written = Write(lasting);
  for (const std::string &file : {written, RegistryTextBytes(written)}) {
    const RegistryText again = Parse(file);
    Require(again.faults.empty() && SaySame(again.statements, lasting),
            "what is written reads the same, in both encodings");
    Require(Write(again.statements) == written, "what is read again is written the same");
  }
}

std::vector<samples::HostileFile> Seeds() { return RegistryFiles(); }

} // namespace turfdesk::fuzz
