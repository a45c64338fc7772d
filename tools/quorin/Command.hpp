#pragma once

#include "Outcome.hpp"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <vector>

namespace quorin::tool {

/// Each adds one command to `program`.
void addLoad(CLI::App& program, Action& chosen);
void addShow(CLI::App& program, Action& chosen);
void addRead(CLI::App& program, Action& chosen);
void addEqual(CLI::App& program, Action& chosen);
void addCheck(CLI::App& program, Action& chosen);
void addExplain(CLI::App& program, Action& chosen);
void addDiff(CLI::App& program, Action& chosen);
void addMatrix(CLI::App& program, Action& chosen);
void addReport(CLI::App& program, Action& chosen);
void addSchema(CLI::App& program, Action& chosen);
void addBrand(CLI::App& program, Action& chosen);
void addIdentity(CLI::App& program, Action& chosen);
void addCookie(CLI::App& program, Action& chosen);
void addHeaders(CLI::App& program, Action& chosen);
void addRequest(CLI::App& program, Action& chosen);
void addEncode(CLI::App& program, Action& chosen);
void addAppend(CLI::App& program, Action& chosen);
void addUserAgent(CLI::App& program, Action& chosen);
void addCompletion(CLI::App& program, Action& chosen);

/// Adds a command, with an example for its help, to `parent`.
CLI::App& command(CLI::App& parent, const std::string& name, const std::string& purpose, const std::string& example);

/// The commands that stand directly below `app`.
std::vector<const CLI::App*> commandsOf(const CLI::App& app);

/// An option or argument that is absent unless it is given; an empty text is a text.
CLI::Option& optionalText(CLI::App& app, const std::string& name, std::optional<std::string>& target,
                          const std::string& meaning);

/// An argument that takes any number of texts.
CLI::Option& texts(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                   const std::string& meaning);

/// An option that takes one text each time it is given.
CLI::Option& repeatedText(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                          const std::string& meaning);

/// An option that is on or off.
CLI::Option& flag(CLI::App& app, const std::string& name, bool& target, const std::string& meaning);

/// Accepts one of `names`; of others it says which are near.
CLI::Validator oneOf(const std::vector<std::string>& names);

/// Accepts text in UTF-8, as every argument must be but the names of files.
const CLI::Validator& text();

/// An option that takes a whole number of bytes.
CLI::Option& bytes(CLI::App& app, const std::string& name, std::size_t& target, const std::string& meaning);

/// An option that takes a time in seconds, fractions allowed, above zero and up to a million.
CLI::Option& seconds(CLI::App& app, const std::string& name, double& target, const std::string& meaning);

}  // namespace quorin::tool
