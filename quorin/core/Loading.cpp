#include "quorin/core/Loading.hpp"

#include "quorin/core/BrandSection.hpp"
#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/ombrith/Oops.hpp"

#include <utility>
#include <vector>

namespace quorin::loading {
namespace {

Oops failure(int errorCode) {
    return {.component = InstrumentationCodes::Component::configurationManager,
            .element = InstrumentationCodes::Element::configInitialization,
            .errorCode = errorCode};
}

/// What does not exist is shown where it should be: at the object around it.
void locate(ReadReport& report, std::string_view text) {
    std::vector<std::string> pointers;
    for (const Finding& finding : report.findings) {
        pointers.push_back(finding.pointer);
        pointers.push_back(finding.pointer.substr(0, finding.pointer.rfind('/')));
    }
    const auto positions = json::positionsOf(text, pointers);
    for (std::size_t i = 0; i < report.findings.size(); ++i)
        report.findings[i].position = positions[2 * i] ? positions[2 * i] : positions[2 * i + 1];
}

}  // namespace

rx::Result<ConfigurationPointer> configurationIn(const DocumentMap& document, std::string_view text,
                                                 const LoadArguments& arguments) {
    const BrandSection section = BrandSection::of(document, arguments.brand);
    ReadReport report;
    auto configuration = Configuration::fromJSON(section.map, arguments.report ? &report : nullptr);
    if (!configuration) return failure(InstrumentationCodes::ErrorCode::jsonParsing);
    if (arguments.report) {
        report = section.reportOfDocument(std::move(report));
        locate(report, text);
        *arguments.report = std::move(report);
    }
    configuration->brand = arguments.brand;
    configuration->device = arguments.deviceID;
    configuration->version = arguments.version;
    return std::make_shared<const Configuration>(*std::move(configuration));
}

rx::Result<ConfigurationPointer> configurationAt(const PathURL& file, const LoadArguments& arguments) {
    const foundation::FileRead read = foundation::readFile(file.path, json::parsePadding);
    if (!read) return failure(InstrumentationCodes::ErrorCode::notFound);
    const json::ParseResult parsed = json::parse(read.bytes, read.bytes.capacity() - read.bytes.size());
    if (!parsed) return failure(InstrumentationCodes::ErrorCode::jsonParsing);
    const auto document = parsed.value()->asObject();
    if (!document) return failure(InstrumentationCodes::ErrorCode::notFound);
    return configurationIn(*document, read.bytes, arguments);
}

}  // namespace quorin::loading
