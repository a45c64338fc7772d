#pragma once

#include "quorin/core/LoadArguments.hpp"
#include "quorin/platform/rx/Result.hpp"

#include "Command.hpp"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quorin::tool {

using ConfigurationPointer = ConfigurationManager::Instance::ConfigurationPointer;

/// Where a configuration comes from and for whom, as the arguments say.
struct Source {
    std::string name{};  ///< a URL, a path, or "-" for standard input
    std::optional<std::string> brand{};
    std::optional<std::string> device{};
    std::string version = "1.0.0";

    /// Adds the arguments, the source itself under `argument`; `withDevice` adds `--device` too.
    CLI::Option& addTo(CLI::App& command, const std::string& argument, bool withDevice);

    /// Loads it into the session's manager, whose report tells what was not taken where `findings` are asked for.
    std::variant<ConfigurationPointer, Failure> load(Session& session, bool findings = false) const;
};

/// Adds the argument that names where a document comes from.
CLI::Option& addSource(CLI::App& command, const std::string& argument, std::string& name);

/// The brand that a text names. One that names none is `unknown`, with a warning.
Brand brandNamed(const std::string& text, Output& output);

/// The brand that a text names by a spelling, or by the name that the program prints. Empty when it names none.
std::optional<Brand> brandMeant(const std::string& text);

/// Accepts such texts.
CLI::Validator brandText();

/// Adds the sources of a command that takes several.
void addSources(CLI::App& command, std::vector<std::string>& names);

/// Adds the option that names brands, for a command that judges: a text that names none is a wrong use.
void addBrands(CLI::App& command, std::vector<std::string>& texts);

/// The brands that those texts name, each once and in their order; all where none is asked for.
std::vector<Brand> brandsAsked(const std::vector<std::string>& texts);

/// The path at which a file named on the command line is read.
std::string pathOf(const std::string& name);

/// How an argument that names something is called in a message. A URL that was meant keeps its secrets.
std::string calledArgument(const std::string& name);

/// How a file is called in a message.
std::string calledFile(const std::string& name);

}  // namespace quorin::tool
