// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/ListView.h"

#include "platform/CaseFold.h"
#include "platform/NameOrder.h"
#include "platform/RuntimeError.h"
#include "platform/ShownText.h"

#include <gtest/gtest.h>

namespace turfdesk {

namespace {

std::string Texts(const ListView &list) {
  std::string texts;
  for (std::size_t i = 0; i < list.Count(); ++i)
    texts += (i == 0 ? "" : ",") + list.At(i).Text();
  return texts;
}

/// Keeps a copy of the list by its notices alone; wrong or missing ones make the copy differ.
class Mirror final : public ListViewObserver {
public:
  explicit Mirror(ListView &list) : mList(list) {
    AfterReset();
    list.SetObserver(this);
  }

  void BeforeInsert(std::size_t index) override { EXPECT_LE(index, mList.Count()); }
  void AfterInsert(std::size_t index) override { texts.insert(At(index), mList.At(index).Text()); }
  void BeforeRemove(std::size_t index) override { EXPECT_EQ(texts[index], mList.At(index).Text()); }
  void AfterRemove(std::size_t index) override { texts.erase(At(index)); }
  void BeforeMove(std::size_t from, std::size_t to) override { EXPECT_NE(from, to); }
  void AfterMove(std::size_t from, std::size_t to) override {
    const std::string text = texts[from];
    texts.erase(At(from));
    texts.insert(At(to), text);
  }
  void RowChanged(std::size_t index) override { texts[index] = mList.At(index).Text(); }
  void BeforeReset() override {}
  void AfterReset() override {
    ++resets;
    texts.clear();
    for (std::size_t i = 0; i < mList.Count(); ++i)
      texts.push_back(mList.At(i).Text());
  }
  void SelectionChanged() override { ++selections; }

  std::string Joined() const {
    std::string joined;
    for (const std::string &text : texts)
      joined += (joined.empty() ? "" : ",") + text;
    return joined;
  }

  std::vector<std::string> texts;
  int resets = 0;
  int selections = 0;

private:
  std::vector<std::string>::iterator At(std::size_t index) {
    return texts.begin() + static_cast<std::ptrdiff_t>(index);
  }
  ListView &mList;
};

ErrorNumber NumberOf(const std::function<void()> &action) {
  try {
    action();
  } catch (const RuntimeError &error) {
    return error.Number();
  }
  ADD_FAILURE() << "nothing was thrown";
  return {};
}

} // namespace

TEST(ListViewTest, KeysAreUniqueAndExact) {
  ListView list;
  list.Add("{A}", "one");
  EXPECT_EQ(NumberOf([&] { list.Add("{A}", "two"); }), ErrorNumber::KeyNotUnique);
  list.Add("{a}", "other case");
  list.Add("", "no key");
  list.Add("", "no key either");
  EXPECT_EQ(Texts(list), "one,other case,no key,no key either");
  list.RemoveByKey("{A}");
  EXPECT_EQ(NumberOf([&] { list.RemoveByKey("{A}"); }), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(list.Add("{A}", "again").Key(), "{A}");
}

TEST(ListViewTest, FindItemMatchesTheBeginningOfTheTagInRowOrder) {
  ListView list;
  list.SetSorted(true);
  for (const char *text : {"c", "a", "b"})
    list.Add(text, text).SetTag(std::string("{tag-") + text + "}");
  list.At(0).SetTag("{tag-z}");
  EXPECT_EQ(list.FindItem("{tag-")->Text(), "a");
  EXPECT_EQ(list.FindItem("{tag-b}")->Text(), "b");
  EXPECT_EQ(list.FindItem("{TAG-b}"), nullptr);
  EXPECT_EQ(list.FindItem("{tag-a}"), nullptr) << "the tag was replaced";
  EXPECT_EQ(list.FindItem("")->Text(), "a");
  list.RemoveByKey("a");
  EXPECT_EQ(list.FindItem("{tag-z}"), nullptr);
}

TEST(ListViewTest, SortsAsPeopleDoWithTiesByKeyAndKeepsOrderThroughChanges) {
  ListView list;
  for (const auto &[key, text] : {std::pair{"3", "pine"}, {"2", "Pine"}, {"1", "öl"}, {"4", "ÖK"}, {"5", "Ash"}})
    list.Add(key, text);
  Mirror mirror(list);
  list.SetSorted(true);
  EXPECT_EQ(Texts(list), "Ash,ÖK,öl,pine,Pine");

  Row &pine = *list.FindKey("3");
  list.Add("6", "oak");
  pine.SetText("Zelkova");
  list.FindKey("4")->SetText("aspen");
  list.RemoveByKey("5");
  list.FindKey("6")->SetText("OAK");
  EXPECT_EQ(Texts(list), "aspen,OAK,öl,Pine,Zelkova");
  EXPECT_EQ(mirror.Joined(), Texts(list));
  EXPECT_EQ(&pine, list.FindKey("3")) << "rows keep their address";
}

TEST(ListViewTest, AnUpdateTellsOnceAndSortsAtItsEnd) {
  ListView list;
  list.SetSorted(true);
  Mirror mirror(list);
  {
    const ListView::Update outer(list);
    const ListView::Update inner(list);
    list.Add("1", "b").SetSubItems(2, "x");
    list.Add("2", "a");
  }
  EXPECT_EQ(mirror.resets, 2) << "the first is the mirror's own";
  EXPECT_EQ(mirror.Joined(), "a,b");
  EXPECT_EQ(list.FindKey("1")->SubItems(1), "");
  EXPECT_EQ(list.FindKey("1")->SubItems(2), "x");
  EXPECT_EQ(NumberOf([&] { list.At(0).SetSubItems(0, "x"); }), ErrorNumber::SubscriptOutOfRange);
}

TEST(ListViewTest, RemovingTheSelectedItemSelectsNothing) {
  ListView list;
  Mirror mirror(list);
  Row &row = list.Add("1", "a");
  list.Select(&row);
  list.Select(&row);
  EXPECT_EQ(mirror.selections, 1);
  list.Remove(row);
  EXPECT_EQ(list.SelectedItem(), nullptr);
  EXPECT_EQ(mirror.selections, 2);
  list.Select(&list.Add("1", "b"));
  list.Clear();
  EXPECT_EQ(list.SelectedItem(), nullptr);
}

TEST(CaseFoldTest, TakesForOneNameWhatWindowsDoes) {
  const std::pair<const char *, const char *> same[] = {{"COURSE.HLC", "course.hlc"},
                                                        {"ÖRESUND ÉTÉ", "öresund été"},
                                                        {"Ÿ", "ÿ"},
                                                        {"Σ", "σ"},
                                                        {"Ⱥ", "ⱥ"},
                                                        {"\xFFÉ", "\xFFé"}};
  for (const auto &[left, right] : same)
    EXPECT_TRUE(EqualsIgnoringCase(left, right)) << left;
  const std::pair<const char *, const char *> different[] = {{"Straße", "STRASSE"},
                                                             {"ß", "ẞ"},
                                                             {"oﬃce", "office"},
                                                             {"\u212A", "k"},
                                                             {"ſ", "s"},
                                                             {"ς", "σ"},
                                                             {"ı", "i"},
                                                             {"İ", "i"},
                                                             {"é", "e\u0301"},
                                                             {"\u212B", "\u00E5"},
                                                             {"ǅ", "ǆ"},
                                                             {"\U00010400", "\U00010428"}};
  for (const auto &[left, right] : different)
    EXPECT_FALSE(EqualsIgnoringCase(left, right)) << left;
  EXPECT_EQ(FoldCase("A\xFF\x80Ö\xC3"), "a\xFF\x80ö\xC3");
}

TEST(NameOrderTest, BaseLettersThenAccentsThenCase) {
  std::vector<std::string> names = {"Zürich", "résumé",  "Resume",  "öl",     "\xFFx", "Ørsted", "Resumé",
                                    "Ähre",   "oak",     "resumes", "resume", "Ahorn", "Ærø",    "RESUME",
                                    "Straße", "Strasse", "Oslo",    "Ж",      "a b",   "Łódź",   "lob"};
  SortForPeople(names, std::identity());
  std::string joined;
  for (const std::string &name : names)
    joined += name + ",";
  EXPECT_EQ(joined, "a b,Ærø,Ahorn,Ähre,lob,Łódź,oak,öl,Ørsted,Oslo,resume,Resume,RESUME,Resumé,résumé,resumes,"
                    "Strasse,Straße,Zürich,Ж,\xFFx,");
}

TEST(ShownTextTest, OnlyTheMessagesOwnLineBreaksAreLineBreaks) {
  const std::string name = "\x1B[2J\r\n\x7F\u009B\u2028\u202Eü\x9B";
  const std::string message = "Delete?\r\n\r\n" + AsOneLine(name) + "\nYes";
  EXPECT_EQ(WithEscapes(message), "Delete?\n\n\\x1B[2J\\x0D\\x0A\\x7F\\x9B\\u2028\\u202Eü\\x9B\nYes");
  EXPECT_EQ(WithSymbols(message), "Delete?\n\n␛[2J␍␊␡\uFFFD␤⇄ü\uFFFD\nYes");
  EXPECT_EQ(WithoutMarks(message), "Delete?\r\n\r\n" + name + "\nYes");
}

} // namespace turfdesk
