# SPDX-License-Identifier: MIT
# A recipe of scripts/windows-deps: case folding.
source_package=utf8proc
build() {
  cross_cmake "$1" "$2" -DUTF8PROC_INSTALL=ON -DUTF8PROC_ENABLE_TESTING=OFF
  install_licence "$1/LICENSE.md" "$2" utf8proc
}
