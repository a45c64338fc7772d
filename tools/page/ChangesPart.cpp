#include "Parts.hpp"
#include "tools/document/Path.hpp"

#include <algorithm>
#include <array>

namespace quorin::page {
namespace {

using document::Change;
using document::Grade;

std::string cell(const std::optional<json::Value>& value) {
    return value ? "<td>" + element("code", document::shown(*value)) + "</td>" : "<td class=\"absent\">absent</td>";
}

/// As findings matter, in the order of the grades.
constexpr std::array<std::string_view, document::grades> weights{"error", "warning", "note"};

std::string weightOf(Grade grade) { return std::string(weights[static_cast<std::size_t>(grade)]); }

std::string rowOf(const Change& change) {
    return "<tr><td class=\"grade " + weightOf(change.grade) + "\">" + std::string(nameOf(change.grade)) + "</td><td>"
           + element("code", change.path) + "</td>" + cell(change.before) + cell(change.after)
           + element("td", change.why) + "</tr>";
}

}  // namespace

void changesPart(std::span<const document::BrandChanges> changes, const LineTaker& take) {
    for (const document::BrandChanges& one : changes) {
        take(element("h3", one.title()));
        const auto told = std::ranges::find_if(changes, [&](const auto& other) { return other.isAs(one); });
        if (told != changes.end() && &*told != &one) {
            take(element("p", "As " + told->title() + "."));
            continue;
        }
        if (const std::string move = one.move(); !move.empty()) take(element("p", "It " + move + "."));
        if (one.changes.empty()) {
            take("<p>No app notices anything.</p>");
            continue;
        }
        beginTable("What changes for " + one.title(), {"grade", "field", "old", "new", "why"}, take);
        for (const Change& change : one.changes) take(rowOf(change));
        endTable(take);
    }
}

std::string changesInWords(std::span<const document::BrandChanges> changes) {
    std::string words;
    for (const Grade grade : {Grade::breaks, Grade::behaviour, Grade::cosmetic}) {
        std::size_t number = 0;
        for (const document::BrandChanges& one : changes) number += count(one.changes, grade);
        if (number > 0)
            words += " " + badge(weightOf(grade), std::string(nameOf(grade)) + ": " + std::to_string(number));
    }
    return words.empty() ? "No app notices anything." : words;
}

}  // namespace quorin::page
