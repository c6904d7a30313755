// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

// Makes the animation of the status windows: make_avi OUTPUT

#include "avi/AviFile.h"
#include "avi/Scene.h"

#include <exception>
#include <fstream>
#include <iostream>

namespace {

int WriteAnimation(const char *path) {
  using namespace turfdesk::avi;
  std::vector<Image> images;
  images.reserve(SceneFrames);
  for (int frame = 0; frame < SceneFrames; ++frame)
    images.push_back(DrawScene(frame));
  const std::vector<std::uint8_t> film = MakeAvi(images, SceneFramesPerSecond);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char *>(film.data()), static_cast<std::streamsize>(film.size()));
  file.close();
  if (!file) {
    std::cerr << "make_avi: cannot write " << path << '\n';
    return 1;
  }
  return 0;
}

} // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::cerr << "usage: make_avi OUTPUT\n";
    return 2;
  }
  try {
    return WriteAnimation(argv[1]);
  } catch (const std::exception &error) {
    std::cerr << "make_avi: " << error.what() << '\n';
    return 1;
  }
}
