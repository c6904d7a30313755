// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "conversion/RunQuillonConverter.h"

#include "conversion/StartConverter.h"
#include "support/ErrorHandling.h"

namespace turfdesk {

bool RunQuillonConverter(SharedState &state) {
  bool started = false;
  Guarded(state, "frmTurfManager.btnConvertQuillon_Click(): ", [&] {
    started = StartConverter(state, ConverterPath(state, "QuillonConverter.exe"), {}, WindowStyle::NormalFocus) != 0;
  });
  return started;
}

} // namespace turfdesk
