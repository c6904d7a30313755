// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "Measure.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <stdlib.h>
#include <string_view>

namespace turfdesk::bench {

namespace {

bool ReadNumber(std::string_view text, int &number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0;
}

bool ReadOptions(int argc, char **argv, Options &options) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view option = argv[i];
    if (option == "--quick")
      options.quick = true;
    else if (option == "--folder" && i + 1 < argc)
      options.folder = std::filesystem::absolute(argv[++i]);
    else if (option != "--rounds" || i + 1 == argc || !ReadNumber(argv[++i], options.rounds))
      return false;
  }
  return true;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::string Amount(double value, Unit unit) {
  char text[32];
  if (unit == Unit::Milliseconds)
    std::snprintf(text, sizeof text, "%.1f ms", value * 1000);
  else
    std::snprintf(text, sizeof text, "%.2f MiB", value / (1024.0 * 1024.0));
  return text;
}

} // namespace

int RunBenchmark(int argc, char **argv, void (*run)(const Options &options)) {
  try {
    Options options{std::filesystem::temp_directory_path()};
    if (!ReadOptions(argc, argv, options)) {
      std::fprintf(stderr, "usage: %s [--folder DIR] [--quick] [--rounds N]\n", argv[0]);
      return 2;
    }
    // Programs that extract to the system's temporary folder are to use the same disk.
    setenv("TMPDIR", options.folder.c_str(), 1);
    run(options);
    return 0;
  } catch (const std::exception &error) {
    std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
    return 1;
  }
}

Comparison Compare(const Work &subject, const Work &baseline, int rounds) {
  subject();
  baseline();
  std::vector<double> subjects;
  std::vector<double> baselines;
  std::vector<double> ratios;
  for (int round = 0; round < rounds; ++round) {
    // Whichever comes second may find the machine as the first left it, so they take turns at that too.
    if (round % 2 == 0) {
      subjects.push_back(subject());
      baselines.push_back(baseline());
    } else {
      baselines.push_back(baseline());
      subjects.push_back(subject());
    }
    ratios.push_back(subjects.back() / baselines.back());
  }
  return {Median(subjects), Median(baselines), Median(ratios)};
}

double Seconds(const std::function<void()> &work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Report(const std::string &subject, const std::string &baseline, const Comparison &comparison, Unit unit,
            double limit) {
  char limitText[32] = "-";
  const char *verdict = "";
  if (limit > 0) {
    std::snprintf(limitText, sizeof limitText, "%.2f", limit);
    verdict = comparison.ratio <= limit ? "ok" : "OVER";
  }
  std::printf("%-46s %12s  %-34s %12s %7.2f %6s %s\n", subject.c_str(), Amount(comparison.subject, unit).c_str(),
              baseline.c_str(), Amount(comparison.baseline, unit).c_str(), comparison.ratio, limitText, verdict);
  std::fflush(stdout);
}

WorkFolder::WorkFolder(const std::filesystem::path &parent) {
  std::string name = (parent / "turfdesk-bench-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw std::runtime_error("cannot make a folder in " + parent.string());
  mPath = name;
}

WorkFolder::~WorkFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(mPath, ignored);
}

std::filesystem::path WorkFolder::NewFolder() {
  std::filesystem::path folder = mPath / std::to_string(++mFolders);
  std::filesystem::create_directory(folder);
  return folder;
}

} // namespace turfdesk::bench
