// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "support/StringTable.h"
#include "support/basVorinString.h"

#include <gtest/gtest.h>

namespace turfdesk {

TEST(StringHelpersTest, FormatKB) {
  const std::pair<double, const char *> cases[] = {
      {0, "0 KB"},    {100, "0 KB"},  {511, "0 KB"},         {512, "1 KB"},
      {1023, "1 KB"}, {1536, "2 KB"}, {1048576, "1,024 KB"}, {2147483648.0 * 1024, "2,147,483,648 KB"}};
  for (const auto &[size, text] : cases)
    EXPECT_EQ(FormatKB(size), text) << size;
  EXPECT_EQ(FormatKB("1048576"), "1,024 KB");
  EXPECT_EQ(FormatKB("none"), "0 KB");
}

TEST(StringHelpersTest, FormatKBSeparatesAsTheLocaleDoes) {
  struct Separator final : std::numpunct<wchar_t> {
    explicit Separator(wchar_t separator) : mSeparator(separator) {}
    wchar_t do_thousands_sep() const override { return mSeparator; }
    std::string do_grouping() const override { return "\3"; }
    wchar_t mSeparator;
  };
  const std::pair<wchar_t, const char *> cases[] = {
      {L'.', "1.234.567 KB"}, {L'\u2019', "1\u2019234\u2019567 KB"}, {L'\u202F', "1\u202F234\u202F567 KB"}};
  for (const auto &[separator, text] : cases)
    EXPECT_EQ(FormatKB(1234567 * 1024.0, std::locale(std::locale::classic(), new Separator(separator))), text);
  EXPECT_EQ(FormatKB(1234567 * 1024.0, std::locale::classic()), "1,234,567 KB");
}

TEST(StringHelpersTest, ParseList) {
  struct Case {
    const char *source;
    const char *delimiters;
    StringList items;
  };
  const Case cases[] = {{"", ",", {}},
                        {"   ", ",", {""}},
                        {"a", ",", {"a"}},
                        {"a,,b", ",", {"a", "", "b"}},
                        {"a,", ",", {"a", ""}},
                        {",a", ",", {"", "a"}},
                        {R"("a,b",c)", ",", {"a,b", "c"}},
                        {R"(x"a,b",c)", ",", {R"(x"a,b")", "c"}},
                        {"two  words", " ", {"two", "words"}},
                        {"a, b", ", ", {"a", "b"}},
                        {"a ,b", ", ", {"a", "", "b"}}};
  for (const Case &c : cases)
    EXPECT_EQ(ParseList(c.source, c.delimiters), c.items) << c.source;
  EXPECT_EQ(ParseList(R"("a,b")", ",", false, false), (StringList{R"("a)", R"(b")"}));
}

TEST(StringHelpersTest, Quotes) {
  const std::pair<const char *, const char *> added[] = {{"", R"("")"},       {"a", R"("a")"},      {R"("a)", R"("a")"},
                                                         {R"(a")", R"("a")"}, {R"("a")", R"("a")"}, {R"(")", R"(")"}};
  for (const auto &[text, quoted] : added)
    EXPECT_EQ(AddQuotes(text), quoted);
  const std::pair<const char *, const char *> stripped[] = {
      {"", ""}, {R"(")", ""}, {R"("")", ""}, {R"("a b")", "a b"}, {R"("a)", R"("a)"}, {R"("a" )", R"("a" )"}};
  for (const auto &[text, bare] : stripped)
    EXPECT_EQ(StripQuotes(text), bare);
}

TEST(StringHelpersTest, SmallOnes) {
  EXPECT_EQ(Newlines(2), "\r\n\r\n");
  EXPECT_EQ(Newlines(-1), "");
  EXPECT_EQ(AddBackslash(""), "");
  EXPECT_EQ(AddBackslash(R"(C:\)"), R"(C:\)");
  EXPECT_EQ(AddBackslash(R"(C:\a)"), R"(C:\a\)");
  EXPECT_EQ(PadHexByte("") + PadHexByte("A") + PadHexByte("1F"), "000A1F");
  const StringList onlyEmpty = {""};
  EXPECT_TRUE(ArrayContains("", onlyEmpty));
  EXPECT_FALSE(ArrayContains("a", onlyEmpty));
  EXPECT_TRUE(ArrayContains("{ab}", StringList{"{x}", "{AB}"}));
  EXPECT_FALSE(ArrayContains("", {}));
}

TEST(StringTableTest, FindsEveryEndOfTheTable) {
  EXPECT_EQ(LoadResString(StringId::CourseAloneUsesLibrary),
            "This course uses the following library which is not being used by any other course.");
  EXPECT_EQ(LoadResString(StringId::Title), "Turf Desk");
  EXPECT_EQ(LoadResString(StringId::LibraryMissingContinueCompressing),
            "Library files does not exist. Do you wish to continue compressing without this library?");
  EXPECT_NE(LoadResString(StringId::ServicesUnregistered).find("unregistered.\\nTurf"), std::string::npos);
  EXPECT_ANY_THROW(LoadResString(static_cast<StringId>(143)));
}

} // namespace turfdesk
