#pragma once

#include "quorin/table/Document.hpp"

#include "Command.hpp"

#include <string>
#include <vector>

namespace quorin::tool {

/// Accepts KEY=VALUE: the first "=" divides, the key may be empty.
const CLI::Validator& pair();

/// The pairs by their keys; of two equal keys the last counts.
StringMap mapOf(const std::vector<std::string>& pairs);

/// Headers as JSON, with their values as they are sent.
json::DocumentMap documentOf(const StringMap& headers);

/// An option that takes one pair, any number of times.
CLI::Option& pairOption(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                        const std::string& meaning);

}  // namespace quorin::tool
