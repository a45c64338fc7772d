#include "Command.hpp"
#include "DocumentSource.hpp"
#include "Source.hpp"
#include "tools/document/CheckFormat.hpp"

#include <algorithm>

namespace quorin::tool {
namespace {

using document::CheckedSource;

struct Arguments {
    std::vector<std::string> sources{};
    std::vector<std::string> brands{};
    bool strict = false;
    std::string format = "text";

    Severity level() const { return strict ? Severity::note : Severity::warning; }
};

void print(const std::vector<CheckedSource>& sources, const Arguments& arguments, Output& output) {
    if (arguments.format == "sarif") return output.json(document::sarif(sources));
    if (arguments.format == "junit")
        return document::junitLines(sources, arguments.level(), [&](const std::string& line) { output.line(line); });
    if (arguments.format == "text") {
        for (const CheckedSource& source : sources)
            for (const std::string& line : document::lines(source)) output.line(line);
        return;
    }
    std::vector<json::Value> records;
    for (const CheckedSource& source : sources)
        for (json::Value& record : document::records(source)) records.push_back(std::move(record));
    output.json(json::List(records));
}

bool isClean(const CheckedSource& source, Severity level) {
    for (const Severity severity : {Severity::note, Severity::warning, Severity::error}) {
        if (severity >= level && document::count(source.checked, severity) > 0) return false;
    }
    return true;
}

/// What could not be checked keeps nothing from being told of the rest.
Outcome endedBy(const std::vector<Failure>& failures, const Output& output) {
    std::for_each(failures.begin(), failures.end() - 1, [&](const Failure& failure) { output.fail(failure); });
    return failures.back();
}

Outcome checkAll(const Arguments& arguments, Session& session) {
    const auto brands = brandsAsked(arguments.brands);
    std::vector<CheckedSource> sources;
    std::vector<Failure> failures;
    bool clean = true;
    for (const std::string& name : arguments.sources) {
        auto read = documentAt(name, session);
        if (auto* failure = std::get_if<Failure>(&read)) {
            failures.push_back(std::move(*failure));
            continue;
        }
        const auto& [text, map] = std::get<Document>(read);
        sources.push_back({calledFile(name), document::check(map, text, brands)});
        clean = clean && isClean(sources.back(), arguments.level());
    }
    if (!sources.empty()) print(sources, arguments, session.output);
    if (!failures.empty()) return endedBy(failures, session.output);
    if (clean) return {};
    return Failure::silent();
}

}  // namespace

void addCheck(CLI::App& program, Action& chosen) {
    CLI::App& made = command(program, "check", "Tell what in documents is most likely not meant",
                             "quorin check config.json --strict");
    const auto arguments = std::make_shared<Arguments>();
    addSources(made, arguments->sources);
    addBrands(made, arguments->brands);
    flag(made, "--strict", arguments->strict, "Let notes fail the check too, and not only warnings and errors");
    made.add_option("--format", arguments->format, "The form of the result: text (the default), json, sarif or junit")
        ->type_name("FORM")
        ->check(oneOf({"text", "json", "sarif", "junit"}));
    made.callback([arguments, &chosen] {
        chosen = judging([arguments](Session& session) { return checkAll(*arguments, session); });
    });
}

}  // namespace quorin::tool
