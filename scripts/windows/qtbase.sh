# SPDX-License-Identifier: MIT
# A recipe of scripts/windows-deps: the windows' toolkit, static and small. The host's own Qt of the same version lends
# its tools (moc, uic, rcc). What Turf Desk does not use is left out; tabletevent is off because Debian's source lacks
# a header that it needs.
source_package=qt6-base
build() {
  set -- "$1" "$2" -DCMAKE_BUILD_TYPE=MinSizeRel -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(gcc -print-multiarch)/cmake" \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_GENERATE_SBOM=OFF -DINPUT_opengl=no
  for feature in sql network dbus printsupport opengl vulkan xml concurrent icu glib openssl zstd pkg_config \
    tabletevent system_zlib system_pcre2 system_freetype system_harfbuzz system_png system_jpeg; do
    set -- "$@" "-DFEATURE_$feature=OFF"
  done
  cross_cmake "$@"
  install_licence "$1/LICENSES/LGPL-3.0-only.txt" "$2" qt6-base/LGPL-3.0
  install_licence "$1/LICENSES/GPL-3.0-only.txt" "$2" qt6-base/GPL-3.0
  for part in pcre2/LICENCE freetype/LICENSE.txt harfbuzz-ng/COPYING libpng/LICENSE libjpeg/LICENSE zlib/LICENSE; do
    [ ! -e "$1/src/3rdparty/$part" ] || install_licence "$1/src/3rdparty/$part" "$2" "qt6-base/${part%%/*}"
  done
}
