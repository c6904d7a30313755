# SPDX-License-Identifier: MIT
# A recipe of scripts/windows-deps: libraries that are headers alone serve every system as Debian has them.
source_package=
build() {
  mkdir -p "$2/include" "$2/share/cmake"
  cp -r /usr/include/CLI /usr/include/nlohmann "$2/include/"
  cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$2/share/cmake/"
  install_licence /usr/share/doc/libcli11-dev/copyright "$2" CLI11
  install_licence /usr/share/doc/nlohmann-json3-dev/copyright "$2" nlohmann-json
  # Linked from the cross compiler's own package.
  install_licence /usr/share/doc/libz-mingw-w64-dev/copyright "$2" zlib
  install_licence /usr/share/doc/gcc-mingw-w64-base/copyright "$2" gcc
  install_licence /usr/share/doc/mingw-w64-common/copyright "$2" mingw-w64
}
