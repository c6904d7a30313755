// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "samples/Basics.h"

namespace turfdesk::samples {

/// A 24-bit BMP: hills under a sky, the flag of the hole on one of them. The seed shapes and colours them.
Bytes PictureBytes(int width, int height, std::uint64_t seed);

/// A 16-bit mono WAV of 11,025 samples a second: a small tune of the seed's own.
Bytes MusicBytes(int seconds, std::uint64_t seed);

/// What a course's author might write beside it, with CR LF line ends.
std::string CourseNotes(std::string_view courseName, std::uint64_t seed);

/// Something of an MP3's shape and density: frames of noise behind valid frame headers. It does not compress, and it
/// plays as noise.
Bytes Mp3Bytes(std::size_t size, std::uint64_t seed);

} // namespace turfdesk::samples
