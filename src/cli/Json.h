// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "cli/Transcript.h"

#include <nlohmann/json.hpp>

#include <string>

namespace turfdesk {

using Json = nlohmann::ordered_json;

/// The object as indented text. Names from files of any origin may hold bytes that are no UTF-8; they are replaced,
/// since they must not cost the user the whole answer.
inline std::string DumpJson(const Json &json) { return json.dump(2, ' ', false, Json::error_handler_t::replace); }

/// The object of an operation, to which a command may add what else it has to say.
Json OperationObject(const Transcript &transcript, bool result, const std::string &verdict);

} // namespace turfdesk
