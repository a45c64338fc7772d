#include "Parts.hpp"
#include "tools/document/Path.hpp"

namespace quorin::page {
namespace {

using document::Change;

std::string cell(const std::optional<json::Value>& value) {
    return value ? "<td>" + element("code", document::shown(*value)) + "</td>" : "<td class=\"absent\">absent</td>";
}

std::string rowOf(const Change& change) {
    return "<tr>" + element("td", nameOf(change.grade)) + "<td>" + element("code", change.path) + "</td>"
           + cell(change.before) + cell(change.after) + element("td", change.why) + "</tr>";
}

}  // namespace

void changesPart(std::span<const document::BrandChanges> changes, const LineTaker& take) {
    for (const document::BrandChanges& one : changes) {
        take(element("h3", one.title()));
        if (const std::string move = one.move(); !move.empty()) take(element("p", "It " + move + "."));
        if (one.changes.empty()) {
            take("<p>No app notices anything.</p>");
            continue;
        }
        take(
            "<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"changes\"><table><thead><tr>"
            "<th scope=\"col\">grade</th><th scope=\"col\">field</th><th scope=\"col\">old</th>"
            "<th scope=\"col\">new</th><th scope=\"col\">why</th></tr></thead><tbody>");
        for (const Change& change : one.changes) take(rowOf(change));
        take("</tbody></table></div>");
    }
}

}  // namespace quorin::page
