// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The one text that a program is started with, from which the runtime of a C or C++ program gets each argument as it
/// was. What needs no quotes has none: some programs read their command line themselves. All texts are UTF-8.
std::wstring CommandLineText(std::wstring_view program, const std::vector<std::string> &arguments);

} // namespace turfdesk
