#pragma once

#include "Command.hpp"
#include "ModelType.hpp"

#include <memory>
#include <string>
#include <variant>

namespace quorin::tool {

/// The TYPE and how its object is given, as the arguments of `read` and `equal` say.
struct ModelArguments {
    std::string type{};
    std::string form = "server";
    std::optional<std::string> name{};

    void addTo(CLI::App& command);
    ReadArguments readArguments() const;
};

/// The JSON object that a file holds, or why it holds none; `called` says what it is read as.
std::variant<json::DocumentMap, Failure> objectIn(const std::string& file, const std::string& called);

/// Reads the model that a file holds, or says why it cannot.
std::variant<std::unique_ptr<AnyModel>, Failure> readModel(const ModelArguments& arguments, const std::string& file);

}  // namespace quorin::tool
