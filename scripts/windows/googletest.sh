# SPDX-License-Identifier: MIT
# A recipe of scripts/windows-deps: what the tests are written with, from the sources that Debian's package holds.
source_package=
build() {
  cross_cmake /usr/src/googletest "$2" -DBUILD_GMOCK=OFF
}
