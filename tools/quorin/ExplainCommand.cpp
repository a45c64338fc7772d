#include "quorin/platform/json/Pointer.hpp"

#include "Command.hpp"
#include "DocumentSource.hpp"
#include "Joined.hpp"
#include "Source.hpp"
#include "Table.hpp"
#include "tools/document/Explanation.hpp"
#include "tools/document/KindPage.hpp"
#include "tools/document/Nearest.hpp"
#include "tools/document/Path.hpp"

namespace quorin::tool {
namespace {

struct Arguments {
    std::optional<std::string> subject{};
    std::optional<std::string> path{};
    std::optional<std::string> brand{};
};

Outcome explainCode(const std::string& code, Output& output) {
    if (const auto* const kind = document::kindNamed(code)) return output.text(document::pageOf(*kind)), std::nullopt;
    std::vector<std::string_view> codes;
    for (const auto& kind : document::kinds()) codes.push_back(kind.finding.code);
    const auto near = document::near(code, codes);
    return Failure::usage("there is no finding \"" + calledArgument(code) + "\""
                          + (near.empty() ? "; to explain a field, name its PATH behind the source"
                                          : "; near it: " + joined(near, ", ")));
}

std::string placeOf(const document::Link& link) {
    if (!link.position) return "";
    return std::to_string(link.position->line) + ":" + std::to_string(link.position->column);
}

Outcome printed(const std::string& path, const document::Explanation& explanation, Output& output) {
    output.line(path);
    Table table(2);
    table.row({"STEP", "POINTER", "LINE:COLUMN", "FOUND"});
    for (const auto& link : explanation.chain) table.row({link.what, link.pointer, placeOf(link), link.found});
    output.text(table.text());
    if (!explanation.value) output.line("absent: " + explanation.reason);
    if (explanation.value && !explanation.reason.empty()) output.line("default: " + explanation.reason);
    if (explanation.value) return output.line("value: " + document::shown(*explanation.value)), std::nullopt;
    return Failure::silent();
}

/// The field at a pointer, as reports tell it from the top of the document, which also says whose section it is in.
document::FieldPath fieldAtPointer(const std::string& pointer, std::optional<Brand>& brand) {
    std::vector<std::string> steps = json::stepsOf(pointer);
    if (const Brand named = Brand::fromRaw(steps.front()); named.rawValue() == steps.front()) {
        brand = named;
        steps.erase(steps.begin());
    } else if (steps.front() != Configuration::Keys::webServices) {
        brand.reset();
    }
    std::vector<std::string_view> known;
    auto field = document::fieldAt(steps, true, known);
    if (field) return *std::move(field);
    return document::FieldPath{.archived = {}, .inDocument = steps, .isByDocument = true, .isAround = steps.empty()};
}

std::variant<document::FieldPath, Failure> fieldOf(const std::string& path, std::optional<Brand>& brand) {
    if (path.starts_with('/')) return fieldAtPointer(path, brand);
    std::vector<std::string_view> known;
    std::size_t unknown = 0;
    const auto steps = document::stepsOfPath(path);
    if (steps) {
        if (auto field = document::fieldAt(*steps, false, known, &unknown)) return *std::move(field);
    }
    const auto near = steps && !steps->empty() ? document::near((*steps)[unknown], known) : known;
    return Failure::usage("no reader knows the field \"" + path + "\""
                          + (near.empty() ? "" : "; near it: " + joined(near, ", ")));
}

Outcome explain(const Arguments& arguments, Session& session) {
    if (!arguments.subject) return session.output.text(document::pages()), std::nullopt;
    if (!arguments.path) return explainCode(*arguments.subject, session.output);
    auto brand = arguments.brand ? brandMeant(*arguments.brand) : std::nullopt;
    const auto field = fieldOf(*arguments.path, brand);
    if (const auto* failure = std::get_if<Failure>(&field)) return *failure;
    const auto read = documentAt(*arguments.subject, session);
    if (const auto* failure = std::get_if<Failure>(&read)) return *failure;
    const auto& [text, map] = std::get<Document>(read);
    return printed(*arguments.path, document::explained(map, text, brand, std::get<document::FieldPath>(field)),
                   session.output);
}

}  // namespace

void addExplain(CLI::App& program, Action& chosen) {
    CLI::App& made = command(program, "explain", "Tell why apps see a field as they do, or what a finding's code means",
                             "quorin explain config.json videoPlayer.ads.freeTime --brand orvel");
    const auto arguments = std::make_shared<Arguments>();
    optionalText(made, "SUBJECT", arguments->subject,
                 "A source, or the code of a finding; all codes where it is left out");
    CLI::Option& path = optionalText(made, "PATH", arguments->path, "The field, as diff, matrix or check name it");
    path.check(text());
    optionalText(made, "--brand", arguments->brand, "The brand, in any accepted spelling")
        .type_name("TEXT")
        ->check(brandText())
        ->needs(&path);
    made.callback(
        [arguments, &chosen] { chosen = [arguments](Session& session) { return explain(*arguments, session); }; });
}

}  // namespace quorin::tool
