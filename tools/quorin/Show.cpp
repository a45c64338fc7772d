#include "quorin/platform/json/Print.hpp"

#include "Command.hpp"
#include "Source.hpp"
#include "Table.hpp"
#include "tools/document/Path.hpp"

namespace quorin::tool {
namespace {

using json::DocumentMap;
using json::Value;
using Keys = Configuration::Keys;

std::string inWords(const Value& value) {
    const auto text = value.asString();
    return text ? std::string(*text) : json::print(value);
}

/// The fields of a section, and of the sections inside it, each under its path.
void addFields(Table& table, const DocumentMap& section, const std::string& path) {
    for (const auto& [name, value] : section) {
        const std::string here = path + std::string(name);
        if (const auto inner = value.asObject())
            addFields(table, *inner, here + ".");
        else
            table.row({here, inWords(value)});
    }
}

void showHeading(Output& output, std::string_view name) {
    output.text("\n");
    output.line(name);
}

void showSection(Output& output, const DocumentMap& encoded, std::string_view key) {
    const auto value = encoded.find(key);
    if (!value) return;
    showHeading(output, key);
    Table table(2);
    addFields(table, *value->asObject(), "");
    output.text(table.text());
}

void showServices(Output& output, const Configuration& configuration) {
    if (!configuration.webServices) return;
    showHeading(output,
                std::string(Keys::webServices) + " (" + std::to_string(configuration.webServices->size()) + ")");
    Table table(2);
    table.row({"NAME", "METHOD", "URL", "CONTENT TYPE"});
    for (const auto& [name, service] : *configuration.webServices)
        table.row({name, service.method.rawValue(), service.url, service.contentTypeHeader.rawValue()});
    output.text(table.text());
}

void showGroups(Output& output, const Configuration& configuration) {
    if (!configuration.groups) return;
    showHeading(output, Keys::groups);
    Table table(2);
    for (const Group& group : *configuration.groups) table.row({group.id(), group.title()});
    output.text(table.text());
}

/// A map of sections: under each name what stands there, on one line.
void showEntries(Output& output, const DocumentMap& encoded, std::string_view key) {
    const auto value = encoded.find(key);
    if (!value) return;
    showHeading(output, key);
    Table table(2);
    const DocumentMap entries = *value->asObject();
    for (const auto& [name, entry] : entries) {
        const auto params = entry.asObject()->find(Feature::Keys::params);
        table.row({name, json::print(params ? *params : entry)});
    }
    output.text(table.text());
}

std::string placeOf(const Finding& finding) {
    if (!finding.position) return "";
    return std::to_string(finding.position->line) + ":" + std::to_string(finding.position->column);
}

void showReport(Output& output, const ReadReport& report) {
    if (report.findings.empty()) return output.text("\nEverything in the document was taken.\n");
    showHeading(output, "not taken (" + std::to_string(report.findings.size() + report.omitted) + ")");
    Table table(2);
    table.row({"POINTER", "LINE:COLUMN", "EXPECTED", "FOUND", "SO"});
    for (const Finding& finding : report.findings)
        table.row({document::called(finding.pointer), placeOf(finding), finding.expected, finding.found,
                   nameOf(finding.cost)});
    output.text(table.text());
    if (report.omitted > 0) output.line("  and " + std::to_string(report.omitted) + " more");
}

void show(Output& output, const Configuration& configuration, const ReadReport& report) {
    const DocumentMap encoded = configuration.encode();
    Table stamp;
    stamp.row({"brand", configuration.brand ? configuration.brand->rawValue() : "none"});
    stamp.row({"device", *configuration.device});
    stamp.row({"version", *configuration.version});
    output.text(stamp.text());
    for (const std::string_view key : {Keys::application, Keys::appVersion, Keys::initialize, Keys::common, Keys::auth,
                                       Keys::profile, Keys::videoPlayer})
        showSection(output, encoded, key);
    showGroups(output, configuration);
    showServices(output, configuration);
    for (const std::string_view key : {Keys::features, Keys::layouts, Keys::analytics})
        showEntries(output, encoded, key);
    showReport(output, report);
}

}  // namespace

void addShow(CLI::App& program, Action& chosen) {
    CLI::App& made = command(program, "show", "Load a configuration and show it, and what was not taken",
                             "quorin show config.json --brand orvel");
    const auto source = std::make_shared<Source>();
    source->addTo(made, "SOURCE", true).required();
    made.callback([source, &chosen] {
        chosen = [source](Session& session) -> Outcome {
            const auto loaded = source->load(session, true);
            if (const auto* failure = std::get_if<Failure>(&loaded)) return *failure;
            show(session.output, *std::get<ConfigurationPointer>(loaded), *session.manager().loadReport()->findings);
            return {};
        };
    });
}

}  // namespace quorin::tool
