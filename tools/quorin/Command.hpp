#pragma once

#include "Session.hpp"

#include <CLI/CLI.hpp>

#include <functional>
#include <optional>
#include <string>

namespace quorin::tool {

/// What a command came to: nothing, or why it failed.
using Outcome = std::optional<Failure>;

/// What the chosen command does; set while the arguments are parsed and run afterwards.
using Action = std::function<Outcome(Session&)>;

/// Each adds one command to `program`.
void addLoad(CLI::App& program, Action& chosen);
void addShow(CLI::App& program, Action& chosen);
void addRead(CLI::App& program, Action& chosen);
void addEqual(CLI::App& program, Action& chosen);
void addBrand(CLI::App& program, Action& chosen);
void addIdentity(CLI::App& program, Action& chosen);
void addHeaders(CLI::App& program, Action& chosen);
void addUserAgent(CLI::App& program, Action& chosen);
void addCompletion(CLI::App& program, Action& chosen);

/// A command with its example, which `act` carries out.
CLI::App& command(CLI::App& parent, const std::string& name, const std::string& purpose, const std::string& example);

/// An option or argument that is absent unless it is given; an empty text is a text.
CLI::Option& optionalText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                          const std::string& meaning);

/// Accepts text in UTF-8, as every argument must be but the names of files.
const CLI::Validator& text();

/// Accepts a whole number of bytes.
const CLI::Validator& bytes();

/// Accepts a time in seconds, fractions allowed, above zero and up to a million.
const CLI::Validator& seconds();

}  // namespace quorin::tool
