#include "quorin/core/Loading.hpp"

#include "quorin/core/BrandSection.hpp"
#include "quorin/platform/foundation/File.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/skell/Json.hpp"

#include <utility>
#include <vector>

namespace quorin::loading {
namespace {

using ErrorCode = InstrumentationCodes::ErrorCode;

Oops oops(int errorCode) {
    return {.component = InstrumentationCodes::Component::configurationManager,
            .element = InstrumentationCodes::Element::configInitialization,
            .errorCode = errorCode};
}

LoadReport begun(std::string source, const LoadArguments& arguments) {
    return {.source = std::move(source), .brand = arguments.brand};
}

LoadReport failed(LoadReport report, rx::Error error, std::string message, std::optional<json::Position> place = {}) {
    report.failure = LoadFailure{std::move(error), std::move(message), place};
    return report;
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

std::shared_ptr<const Configuration> stamped(Configuration configuration, const LoadArguments& arguments) {
    configuration.brand = arguments.brand;
    configuration.device = arguments.deviceID;
    configuration.version = arguments.version;
    return std::make_shared<const Configuration>(std::move(configuration));
}

}  // namespace

LoadReport reportOf(const DocumentMap& document, std::string_view text, std::string source,
                    const LoadArguments& arguments) {
    LoadReport report = begun(std::move(source), arguments);
    report.size = text.size();
    BrandSection section = BrandSection::of(document, arguments.brand);
    ReadReport findings;
    auto configuration = *Configuration::fromJSON(section.map, arguments.findings ? &findings : nullptr);
    if (arguments.findings) {
        report.findings = section.reportOfDocument(std::move(findings));
        locate(*report.findings, text);
    }
    report.section = section.name;
    report.counts = ReadCounts::of(configuration);
    report.configuration = stamped(std::move(configuration), arguments);
    report.content = std::move(section.map);
    return report;
}

LoadReport reportOf(const PathURL& file, const LoadArguments& arguments) {
    LoadReport report = begun(file.path, arguments);
    const foundation::FileRead bytes = foundation::readFile(file.path, json::parsePadding);
    if (!bytes) return failed(std::move(report), oops(ErrorCode::notFound), bytes.failure.message());
    report.size = bytes.bytes.size();
    const json::ParseResult parsed = json::parse(bytes.bytes, bytes.bytes.capacity() - bytes.bytes.size());
    if (const json::ParseError* broken = parsed.error())
        return failed(std::move(report), oops(ErrorCode::jsonParsing), broken->message, broken->position);
    const auto document = parsed.value()->asObject();
    if (!document)
        return failed(
            std::move(report), oops(ErrorCode::notFound),
            "a JSON " + std::string(nameOf(parsed.value()->kind())) + ", but a configuration is a JSON object");
    return reportOf(*document, bytes.bytes, file.path, arguments);
}

LoadReport reportOf(const skell::Response& response, std::string_view url, const LoadArguments& arguments) {
    const auto document = skell::jsonObject(response);
    if (!document) {
        LoadReport report = reportOf(document.error(), url, arguments);
        report.size = response.body().size();
        return report;
    }
    return reportOf(*document, response.body(), skell::redacted(url), arguments);
}

LoadReport reportOf(const rx::Error& error, std::string_view url, const LoadArguments& arguments) {
    const auto* const known = error.as<SkellError>();
    return failed(begun(skell::redacted(url), arguments), error, error.description(),
                  known ? known->position : std::nullopt);
}

}  // namespace quorin::loading
