// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/RuntimeError.h"
#include "support/RegistryTextReader.h"
#include "support/RegistryTextWriter.h"
#include "support/Utf16.h"

#include <gtest/gtest.h>

#include <sstream>

namespace turfdesk {

namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

const std::string header = "Windows Registry Editor Version 5.00\n";
const std::string key = "[HKEY_LOCAL_MACHINE\\K]\n";

RegistryText Parse(const std::string &bytes) {
  return ParseRegistryText({reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size()});
}

/// A statement in few characters: [key] [-key] name=text name=#number name=? name=-
std::string Describe(const RegistryStatement &statement) {
  switch (statement.kind) {
  case RegistryStatement::Kind::Key:
    return "[" + statement.key + "]";
  case RegistryStatement::Kind::DeleteKey:
    return "[-" + statement.key + "]";
  case RegistryStatement::Kind::SetOtherValue:
    return statement.valueName + "=?";
  case RegistryStatement::Kind::DeleteValue:
    return statement.valueName + "=-";
  case RegistryStatement::Kind::SetValue:
    break;
  }
  const RegistryData &data = statement.data;
  return statement.valueName + "=" + (data.type == RegDword ? "#" + std::to_string(data.number) : data.text);
}

Texts Statements(const std::string &bytes) {
  const RegistryText text = Parse(bytes);
  Texts described;
  for (const RegistryTextFault &fault : text.faults)
    described.push_back("Line " + std::to_string(fault.line) + ": " + fault.words);
  for (const RegistryStatement &statement : text.statements)
    described.push_back(Describe(statement));
  return described;
}

/// The lines that are reported, as "3 7".
std::string FaultyLines(const std::string &bytes) {
  std::string lines;
  for (const RegistryTextFault &fault : Parse(bytes).faults) {
    EXPECT_TRUE(fault.words.ends_with('.')) << fault.words;
    lines += (lines.empty() ? "" : " ") + std::to_string(fault.line);
  }
  return lines;
}

std::string Repeated(const char *part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i)
    text += part;
  return text;
}

std::string Utf16File(const std::string &utf8) { return "\xFF\xFE" + Utf16FromUtf8(utf8).value(); }

} // namespace

TEST(RegistryTextTest, ReadsEveryFormOfAValue) {
  const std::pair<std::string, const char *> cases[] = {
      {R"("name"="text")", "name=text"},
      {R"(@="default")", "=default"},
      {R"(""="")", "="},
      {R"( "a b" = "C:\\Games\\\"x\"" ; comment)", R"(a b=C:\Games\"x")"},
      {"\"t\"=\"tab\there ; no comment\"", "t=tab\there ; no comment"},
      {R"("Überß😀"="ä")", "Überß😀=ä"},
      {"\"n\"=dword:0000002a", "n=#42"},
      {"\"n\"=DWORD:fFfFfFfF;x", "n=#-1"},
      {"\"n\"=dword:7", "n=#7"},
      {"\"x\"=-", "x=-"},
      {"@=- ; gone", "=-"},
      {"\"t\"=hex(1):41,00,e4,00,00,00", "t=Aä"},
      {"\"t\"=hex(2):25,00,41,00,25,00,00,00,00,00", "t=%A%"},
      {"\"t\"=hex(2):", "t="},
      {"\"n\"=hex(4):fe,ff,ff,ff", "n=#-2"},
      {"\"o\"=hex:01,2,\\\n  03 ; three", "o=?"},
      {"\"o\"=hex(7):\\\r\n\t41,00,00,00,\\  \n 00,00", "o=?"},
      {"\"o\"=hex:", "o=?"},
      {"\"o\"=hex(b):00,00,00,00,00,00,00,00", "o=?"},
      // Bytes that are not what their type calls for.
      {"\"o\"=hex(1):41", "o=?"},
      {"\"o\"=hex(1):00,d8,00,00", "o=?"},
      {"\"o\"=hex(1):41,00,00,00,42,00", "o=?"},
      {"\"o\"=hex(4):01,02", "o=?"},
      // As the registry editor writes a text that has line breaks in it.
      {"\"m\"=\"one\r\n[two]\n\n\" ", "m=one\r\n[two]\n\n"},
      {"\"na\nme\"=\"x\"", "na\nme=x"},
  };
  for (const auto &[line, expected] : cases) {
    std::string text = header;
    text.append(key).append(line).append("\n\"last\"=-");
    EXPECT_EQ(Statements(text), (Texts{R"([HKEY_LOCAL_MACHINE\K])", expected, "last=-"}));
  }
}

TEST(RegistryTextTest, ReadsKeysAsTheyStand) {
  const std::string deep = "[HKEY_USERS" + Repeated("\\123456789", 300) + "]";
  const std::pair<std::string, std::string> cases[] = {
      {"[HKEY_LOCAL_MACHINE]", "[HKEY_LOCAL_MACHINE]"},
      {"  [-hkey_classes_root\\.HLB\\ ]\t; [x", "[-hkey_classes_root\\.HLB\\ ]"},
      {"[HKEY_CURRENT_USER\\a]b;\"=@\\]", "[HKEY_CURRENT_USER\\a]b;\"=@]"},
      {deep, deep},
  };
  for (const auto &[line, expected] : cases) {
    std::string text = "\n";
    text.append(header).append("; comment\n\n").append(line);
    EXPECT_EQ(Statements(text), Texts{expected});
  }
}

TEST(RegistryTextTest, ReadsEveryEncoding) {
  std::string text = header + key;
  Texts expected{R"([HKEY_LOCAL_MACHINE\K])"};
  // Far beyond what is read at a time, with line ends and pairs at all places.
  for (int i = 0; i < 9000; ++i) {
    expected.push_back(std::to_string(i) + "=ä😀" + std::string(static_cast<std::size_t>(i % 5), 'x'));
    const std::string &line = expected.back();
    text += "\"" + line.substr(0, line.find('=')) + "\"=\"" + line.substr(line.find('=') + 1) + "\"\r\n";
  }
  text.resize(text.size() - 2);
  EXPECT_EQ(Statements(text), expected) << "the last line has no end";
  EXPECT_EQ(Statements("\xEF\xBB\xBF" + text), expected);
  EXPECT_EQ(Statements(Utf16File(text)), expected);
  EXPECT_EQ(Statements(Utf16FromUtf8(text).value()), expected) << "without a mark";
}

TEST(RegistryTextTest, ReportsEveryMalformedLineByItsNumber) {
  const std::pair<std::string, const char *> cases[] = {
      {header + "\"a\"=\"b\"\n" + key + "foo\n\"x\"=\"y\"\n\"z\n", "2 4 6"},
      {header + key + "\"a\"\n@\n\"b\"=\n\"c\"=x\n=\"d\"\n\"e\":\"f\"\n\"g\"=\"h\"i", "3 4 5 6 7 8 9"},
      {header + key + "\"a\"=\"C:\\Games\"\n\"b\"=\"x\\\n\"c\"=\"y\"", "3 4"},
      {header + key + "\"a\"=dword:\n\"b\"=dword:123456789\n\"c\"=dword:-1\n\"d\"=dword:0x1\n\"e\"=dword:g",
       "3 4 5 6 7"},
      {header + key + "\"a\"=hex:0g\n\"b\"=hex:00 11\n\"c\"=hex:00,\n\"d\"=hex(:00\n\"e\"=hex()\n\"f\"=hex,1:00",
       "3 4 5 6 7 8"},
      // A fault within continued bytes is told once, where it is.
      {header + key + "\"a\"=hex:00,\\\n  01,x,\\\n  02,\\\n  03\n\"b\"=\"c\"\n\"d\"=hex:00,\\", "4 8"},
      // A quote that is not closed costs no line but its own.
      {header + key + "\"a\"=\"b\n\"c\"=\"d\"\nfoo\n\"e\"=\"f\n\"g\"=h\n\"i\"=\"j\n\nbar", "3 5 6 7 8 10"},
      {header + "[HKEY_LOCAL_MACHINE\\K\n[HKEY_LOCAL_MACHINE\\K]x\n[]\n[-]\n[Software\\K]\n[HKEY_LOCAL_MACHINE\\\\K]\n"
                "[HKEY_LOCAL_MACHINE\\K\\\\]\n[HKLM\\K]",
       "2 3 4 5 6 7 8 9"},
      {header + "[HKEY_USERS" + Repeated("\\x", 513) + "]", "2"},
      {header + "[-HKEY_LOCAL_MACHINE\\K]\n\"a\"=\"b\"", "3"},
      {header + key + "\"a\"=\"\xE4\"\n\"b\"=\"c\0d\"\n\"e\"=\"\xED\xA0\x80\"\nfoo"s, "3 4 5 6"},
      {Utf16File(header + key) + "\"\0a\0\x00\xD8\"\0\n\0\x00\xDC\n\0"s + "x", "3 4 5"},
      {header + key + "\"a\"=\"" + std::string(RegistryTextLines::LongestLine, 'x') + "\"\nfoo", "3 4"},
      {header + key + "\"a\"=\"" + std::string(2U << 20U, '\n'), "3"},
  };
  for (const auto &[text, lines] : cases)
    EXPECT_EQ(FaultyLines(text), lines) << text.substr(0, 200);
  EXPECT_EQ(Parse(header + Repeated("foo\n", 100)).faults.size(), MostRegistryTextFaults);
}

TEST(RegistryTextTest, TakesNoOtherFormatForItsOwn) {
  const std::string missing = R"(The file does not begin with "Windows Registry Editor Version 5.00".)";
  const std::pair<std::string, std::string> cases[] = {
      {"", "Line 1: " + missing},
      {"\xFF\xFE", "Line 1: " + missing},
      {"\n\n" + key, "Line 3: " + missing},
      {"windows registry editor version 5.00\n" + key, "Line 1: " + missing},
      {"REGEDIT4\n" + key, "Line 1: The file is in version 4 of the format (REGEDIT4). The registry editor writes "
                           "version 5 when its file type \"Registration Files\" is chosen."},
      {"Windows Registry Editor Version 6.00\n" + key,
       "Line 1: The file is in a version of the format other than 5.00."},
      {"PK\3\4\xFF\xFF\n", "Line 1: The line is not in UTF-8. The file should be in UTF-16, as the registry editor "
                           "writes it, or in UTF-8."},
  };
  for (const auto &[text, fault] : cases)
    EXPECT_EQ(Statements(text), Texts{fault});
  EXPECT_EQ(Statements(header), Texts{});
}

TEST(RegistryTextTest, ReadsBackWhatItWrites) {
  const std::string path = R"(HKEY_LOCAL_MACHINE\ [-a];=" ä\]\;)";
  RegistryTextWriter writer;
  writer.AddKey(path);
  Texts expected{"[" + path + "]"};
  for (const std::string &text : {"\\"s, "\""s, "ends in \\"s, "\xEF\xBF\xBD"s, "\x01\r\n\x1F"s}) {
    writer.AddValue({text, {RegSz, 0, text}});
    expected.push_back(std::string(text).append("=").append(text));
  }
  writer.AddValue({"n", {RegDword, -42, ""}});
  writer.AddValue({"bytes", {3, 0, std::string(100, '\xAB')}});
  writer.AddValue({"texts", {7, 0, "A\0\0\0\0\0"s}});
  expected.insert(expected.end(), {"n=#-42", "bytes=?", "texts=?"});
  EXPECT_EQ(Statements(RegistryTextBytes(writer.Text())), expected);
  EXPECT_NE(writer.Text().find("\"n\"=dword:ffffffd6\r\n\"bytes\"=hex:ab,ab,"), std::string::npos);
  std::istringstream lines(writer.Text());
  for (std::string line; std::getline(lines, line);)
    EXPECT_TRUE(line.size() <= 80 || !line.ends_with(",\\\r")) << "bytes go on in the next line: " << line;

  EXPECT_THROW(writer.AddKey("HKEY_LOCAL_MACHINE\\a\nb"), RuntimeError);
  EXPECT_THROW(writer.AddValue({"a\0b"s, {}}), RuntimeError);
}

} // namespace turfdesk
