#include "ModelFile.hpp"

#include "DocumentSource.hpp"
#include "Source.hpp"

#include <algorithm>
#include <vector>

namespace quorin::tool {
namespace {

std::string whyNothingWasRead(const ReadReport& report) {
    const auto ends = [](const Finding& finding) { return finding.cost == Cost::nothingRead; };
    const auto found = std::find_if(report.findings.begin(), report.findings.end(), ends);
    if (found == report.findings.end()) return "nothing could be read";
    const std::string place = found->pointer.empty() ? "" : " at " + found->pointer;
    return "expected " + std::string(found->expected) + place + ", found " + std::string(found->found);
}

}  // namespace

void ModelArguments::addTo(CLI::App& command) {
    command.add_option("TYPE", type, "The model type")->required()->check(oneOf(ModelType::names()));
    command.add_option("--form", form, "The form of the object: server (the default) or archived")
        ->type_name("FORM")
        ->check(oneOf({"server", "archived"}));
}

ReadArguments ModelArguments::readArguments() const {
    return {form == "archived" ? table::Form::archive : table::Form::document, name};
}

std::variant<json::DocumentMap, Failure> objectIn(const std::string& file, const std::string& called) {
    auto read = documentIn(file, called);
    if (auto* failure = std::get_if<Failure>(&read)) return std::move(*failure);
    return std::get<Document>(std::move(read)).map;
}

std::variant<std::unique_ptr<AnyModel>, Failure> readModel(const ModelArguments& arguments, const std::string& file) {
    auto object = objectIn(file, arguments.type);
    if (auto* failure = std::get_if<Failure>(&object)) return std::move(*failure);
    ReadReport report;
    auto model =
        ModelType::find(arguments.type)->read(std::get<json::DocumentMap>(object), arguments.readArguments(), report);
    if (model) return model;
    return Failure::own(
        "notRead", "cannot read " + arguments.type + " from " + calledFile(file) + ": " + whyNothingWasRead(report));
}

}  // namespace quorin::tool
