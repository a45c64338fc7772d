#pragma once

#include <CLI/CLI.hpp>

#include <span>
#include <string>
#include <vector>

/// The words of the command line before they are parsed, and what is said about those that do not parse.
namespace quorin::tool {

/// The words after the program's own name as the parser takes them. A `--` that stands before the command's name is
/// moved behind it, because the parser looks for no command after it.
std::vector<std::string> argumentsOf(std::span<const char* const> given, const CLI::App& program);

/// Whether errors are wanted as JSON, for words that may not parse.
bool wantsJSONErrors(const std::vector<std::string>& words);

/// What is wrong with the words. Repeats none of them but names of options, for any other may be a secret.
std::string usageMessage(const CLI::ParseError& error, const CLI::App& program);

}  // namespace quorin::tool
