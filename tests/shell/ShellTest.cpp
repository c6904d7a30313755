// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "catalogue/Catalogue.h"
#include "shell/FileTypes.h"
#include "shell/Main.h"
#include "support/Registry.h"
#include "support/basVorinRegistry.h"

#include "common/TestWorld.h"
#include "samples/Basics.h"

#include <gtest/gtest.h>

namespace turfdesk {

TEST(MainTest, TheCommandTailIsOnePath) {
  test::TestWorld world;
  const std::pair<const char *, const char *> cases[] = {{"", ""},
                                                         {R"(")", ""},
                                                         {R"("C:\My Courses\a b.hlz")", R"(C:\My Courses\a b.hlz)"},
                                                         {R"(  C:\a b.hlz )", R"(C:\a b.hlz)"}};
  for (const auto &[tail, file] : cases) {
    ASSERT_TRUE(Main(world.state, tail));
    EXPECT_EQ(world.state.commandFile, file) << tail;
  }
}

TEST(MainTest, SeveralArgumentsAreSeveralFilesOnlyWhereEachIsOne) {
  test::TestWorld world;
  for (const char *file : {"a b.hlz", "b.hlz"})
    samples::WriteFile(world.Host(std::string(R"(C:\Dl\)") + file), {});
  std::filesystem::current_path(world.Host(R"(C:\Dl)"));
  using Texts = std::vector<std::string>;
  const struct {
    Texts arguments;
    std::string file;
    Texts further;
    std::size_t boxes = 0;
  } cases[] = {
      {{R"(C:\Dl\a)", "b.hlz", "x"}, R"(C:\Dl\a b.hlz x)", {}},
      {{"a", "b.hlz"}, R"(C:\Dl\a b.hlz)", {}},
      {{"b.hlz", "a b.hlz"}, R"(C:\Dl\b.hlz)", {R"(C:\Dl\a b.hlz)"}},
      {{R"(C:\Dl\b.hlz)", "C:/none.hlc", "file:///C:/Dl/a%20b.hlz"},
       R"(C:\Dl\b.hlz)",
       {R"(C:\none.hlc)", R"(C:\Dl\a b.hlz)"}},
      {{"file://localhost/C:/Dl/b.hlz"}, R"(C:\Dl\b.hlz)", {}},
      {{R"(C:\Dl\)"}, R"(C:\Dl\)", {}},
      {{"a?b.hlz"}, R"(C:\QuillonGolf\)", {}, 1},
  };
  for (const auto &c : cases) {
    ASSERT_TRUE(Main(world.state, c.arguments));
    EXPECT_EQ(world.state.commandFile, c.file);
    EXPECT_EQ(world.state.furtherCommandFiles, c.further) << c.file;
    EXPECT_EQ(world.boxes.TakeTexts().size(), c.boxes) << c.file;
  }
  std::filesystem::current_path(std::filesystem::temp_directory_path());
}

TEST(MainTest, ReadsItsSettingsOnceWithDefaults) {
  test::TestWorld world;
  SharedState &state = world.state;
  EXPECT_EQ(state.installDir + "|" + state.defaultDir, R"(C:\QuillonGolf|C:\QuillonGolf)");
  SetRegistryValue(state, LocalMachine, BaseKey, "InstallDir", R"(D:\Golf)");
  ASSERT_TRUE(Main(state, ""));
  EXPECT_EQ(state.defaultDir, R"(D:\Golf)");
}

TEST(FileTypesTest, AreWrittenAtEveryStart) {
  test::TestWorld world;
  RegisterFileTypes(world.state);
  SetKeyValue(world.state, ".hlc", "", "Somebody else's", RegSz);
  RegisterFileTypes(world.state);
  RegistryFunctions &tree = world.platform->DirectRegistry();
  RegistryHandle key = 0;
  ASSERT_EQ(tree.RegOpenKeyExA(RegistryRoot::ClassesRoot, ".hlc", key), RegSuccess);
  std::string value;
  EXPECT_EQ(QueryValueEx(world.state, key, "", value), RegSuccess);
  EXPECT_STREQ(value.c_str(), "KESTRAVON Course");
  tree.RegCloseKey(key);
  EXPECT_TRUE(world.boxes.shown.empty());
}

} // namespace turfdesk
