#include "Command.hpp"
#include "DocumentSource.hpp"
#include "Source.hpp"
#include "tools/document/ChangesFormat.hpp"

#include <algorithm>
#include <array>

namespace quorin::tool {
namespace {

using document::BrandChanges;

struct Arguments {
    std::string before{};
    std::string after{};
    std::vector<std::string> brands{};
    std::string format = "text";
};

/// Prints what differs brand by brand, the same for several brands once; JSON is one value, and tells all of each.
class Printer {
public:
    Printer(const std::string& format, Output& output) : format_(format), output_(output) {}

    void add(BrandChanges changes) {
        isEqual_ = isEqual_ && document::isUnnoticed(changes.changes);
        if (format_ == "json")
            records_.emplace_back(document::recordOf(changes));
        else
            tell(std::move(changes));
    }

    Outcome end() {
        if (format_ == "json") output_.json(json::DocumentMap{{"equal", isEqual_}, {"views", json::List(records_)}});
        if (isEqual_) return {};
        return Failure::silent();
    }

private:
    void tell(BrandChanges changes) {
        const auto found = std::find_if(told_.begin(), told_.end(),
                                        [&](const BrandChanges& earlier) { return changes.isAs(earlier); });
        const BrandChanges* const as = found == told_.end() ? nullptr : &*found;
        for (const auto& line : format_ == "text" ? textLines(changes, as) : markdownLines(changes, as))
            output_.line(line);
        if (!as) told_.push_back(std::move(changes));
    }

    const std::string& format_;
    Output& output_;
    bool isEqual_ = true;
    std::vector<json::Value> records_{};
    std::vector<BrandChanges> told_{};
};

Outcome diff(const Arguments& arguments, Session& session) {
    if (arguments.before == "-" && arguments.after == "-")
        return Failure::usage("OLD and NEW cannot both be standard input; name a file for one");
    std::array<json::DocumentMap, 2> documents;
    for (std::size_t i = 0; i < 2; ++i) {
        const auto read = documentAt(i == 0 ? arguments.before : arguments.after, session);
        if (const auto* failure = std::get_if<Failure>(&read)) return *failure;
        documents[i] = std::get<Document>(read).map;
    }
    Printer printer(arguments.format, session.output);
    for (const auto& brands : document::alike(documents, brandsAsked(arguments.brands))) {
        const auto before = document::viewOf(documents[0], brands);
        const auto after = document::viewOf(documents[1], brands);
        printer.add({before, after, document::changesBetween(before, after)});
    }
    return printer.end();
}

}  // namespace

void addDiff(CLI::App& program, Action& chosen) {
    CLI::App& made =
        command(program, "diff", "Tell what the apps of each brand notice when a document replaces another",
                "quorin diff old.json new.json --brand orvel");
    const auto arguments = std::make_shared<Arguments>();
    addSource(made, "OLD", arguments->before).required();
    addSource(made, "NEW", arguments->after).required();
    addBrands(made, arguments->brands);
    made.add_option("--format", arguments->format, "The form of the result: text (the default), json or markdown")
        ->type_name("FORM")
        ->check(oneOf({"text", "json", "markdown"}));
    made.callback([arguments, &chosen] {
        chosen = judging([arguments](Session& session) { return diff(*arguments, session); });
    });
}

}  // namespace quorin::tool
