// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// How long a registry editor's file takes to be taken over.

#include "Measure.h"
#include "NoWindows.h"
#include "platform/Platform.h"
#include "shell/Main.h"
#include "shell/SettingsExchange.h"
#include "support/RegistryTextLines.h"
#include "support/SharedState.h"

#include <fstream>
#include <stdexcept>

namespace turfdesk::bench {

namespace {

/// A started program, and a text with so many values in one key of its own.
class World {
public:
  World(const std::filesystem::path &home, int values) : mPlatform(MakePlatform(home.string())) {
    if (!Main(mState, ""))
      throw std::runtime_error("the program does not start");
    std::ofstream text(mPlatform->ToHostPath(mText), std::ios::binary);
    text << RegistryTextHeader << "\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\KESTRAVON\\Marrowfell 2002]\r\n";
    for (int i = 0; i < values; ++i)
      text << "\"Name " << i << "\"=\"a text of no great length\"\r\n";
  }

  void Import() {
    ImportCounts counts;
    if (!ImportSettings(mState, mText, counts))
      throw std::runtime_error("the text is not taken over");
  }

private:
  const std::string mText = R"(C:\settings.reg)";
  NoBoxes mBoxes;
  NoScreen mScreen;
  std::unique_ptr<Platform> mPlatform;
  SharedState mState{*mPlatform, mBoxes, mScreen};
};

// Each time into an empty tree, whose making does not count.
void Run(const Options &options) {
  constexpr int growth = 20;
  const int least = options.quick ? 400 : 4000;
  WorkFolder folder(options.folder);
  const auto import = [&folder](int values, int times) {
    double seconds = 0;
    for (int i = 0; i < times; ++i) {
      World world(folder.NewFolder(), values);
      seconds += Seconds([&world] { world.Import(); });
    }
    return seconds;
  };
  Report("import " + std::to_string(growth * least) + " values of one key",
         std::to_string(growth) + " texts of " + std::to_string(least),
         Compare([&] { return import(growth * least, 1); }, [&] { return import(least, growth); }, options.rounds),
         Unit::Milliseconds, 1.2);
}

} // namespace

} // namespace turfdesk::bench

int main(int argc, char **argv) { return turfdesk::bench::RunBenchmark(argc, argv, turfdesk::bench::Run); }
