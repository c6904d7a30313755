# SPDX-License-Identifier: MIT
# A recipe of scripts/windows-deps: the zip layer's library, with deflate alone, as packages use it.
source_package=libzip
build() {
  cross_cmake "$1" "$2" -DENABLE_COMMONCRYPTO=OFF -DENABLE_GNUTLS=OFF -DENABLE_MBEDTLS=OFF -DENABLE_OPENSSL=OFF \
    -DENABLE_WINDOWS_CRYPTO=OFF -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF -DENABLE_ZSTD=OFF -DBUILD_TOOLS=OFF \
    -DBUILD_REGRESS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF
  install_licence "$1/LICENSE" "$2" libzip
}
