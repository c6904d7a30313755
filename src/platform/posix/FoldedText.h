// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/CaseFold.h"

#include <array>
#include <string>
#include <string_view>

namespace turfdesk {

/// FoldCase of a name that is being looked up, without a heap allocation for the usual short ASCII name.
class FoldedText {
public:
  explicit FoldedText(std::string_view text) {
    if (FoldShortAscii(text)) {
      mView = {mShort.data(), text.size()};
      return;
    }
    mOther = FoldCase(text);
    mView = mOther;
  }
  FoldedText(const FoldedText &) = delete;
  FoldedText &operator=(const FoldedText &) = delete;

  std::string_view View() const { return mView; }

private:
  bool FoldShortAscii(std::string_view text) {
    if (text.size() > mShort.size())
      return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char c = text[i];
      if (static_cast<unsigned char>(c) >= 0x80)
        return false;
      mShort[i] = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }
    return true;
  }

  std::array<char, 120> mShort;
  std::string mOther;
  std::string_view mView;
};

} // namespace turfdesk
