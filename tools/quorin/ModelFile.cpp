#include "ModelFile.hpp"

#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/json/Parse.hpp"

#include "Source.hpp"

#include <algorithm>
#include <vector>

namespace quorin::tool {
namespace {

std::vector<std::string> typeNames() {
    std::vector<std::string> names;
    for (const ModelType& type : ModelType::all()) names.emplace_back(type.name);
    return names;
}

std::string whyNothingWasRead(const ReadReport& report) {
    const auto ends = [](const Finding& finding) { return finding.cost == Cost::nothingRead; };
    const auto found = std::find_if(report.findings.begin(), report.findings.end(), ends);
    if (found == report.findings.end()) return "nothing could be read";
    const std::string place = found->pointer.empty() ? "" : " at " + found->pointer;
    return "expected " + std::string(found->expected) + place + ", found " + std::string(found->found);
}

}  // namespace

void ModelArguments::addTo(CLI::App& command) {
    command.add_option("TYPE", type, "The model type")->required()->check(oneOf(typeNames()));
    command.add_option("--form", form, "The form of the object: server (the default) or archived")
        ->type_name("FORM")
        ->check(oneOf({"server", "archived"}));
}

ReadArguments ModelArguments::readArguments() const {
    return {form == "archived" ? table::Form::archive : table::Form::document, name};
}

std::variant<std::unique_ptr<AnyModel>, Failure> readModel(const ModelArguments& arguments, const std::string& file) {
    const std::string what = "cannot read " + arguments.type + " from " + calledFile(file) + ": ";
    const auto read = foundation::readFile(pathOf(file), json::parsePadding);
    if (!read) return Failure::own("file", what + read.failure.message() + "; name a file that can be read");
    const auto parsed = json::parse(read.bytes, read.bytes.capacity() - read.bytes.size());
    if (const auto* broken = parsed.error())
        return Failure::own("notRead", what + "not JSON at line " + std::to_string(broken->position.line) + ", column "
                                           + std::to_string(broken->position.column) + ": " + broken->message
                                           + "; mend it there");
    const auto object = parsed.value()->asObject();
    if (!object)
        return Failure::own("notRead", what + "it holds a JSON " + std::string(nameOf(parsed.value()->kind()))
                                           + " where an object must be");
    ReadReport report;
    auto model = ModelType::find(arguments.type)->read(*object, arguments.readArguments(), report);
    if (!model) return Failure::own("notRead", what + whyNothingWasRead(report));
    return model;
}

}  // namespace quorin::tool
