// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "avi/Image.h"

namespace turfdesk::avi {

inline constexpr int SceneWidth = 272;
inline constexpr int SceneHeight = 60;
inline constexpr int SceneFrames = 40;
inline constexpr int SceneFramesPerSecond = 15;

/// One frame, from 0, of a golf ball that rolls over the green and drops into the hole. The last frame leads on to
/// the first.
Image DrawScene(int frame);

} // namespace turfdesk::avi
