#include "Parts.hpp"
#include "tools/document/BrandViews.hpp"
#include "tools/document/CheckFormat.hpp"
#include "tools/document/Path.hpp"

#include <algorithm>
#include <array>
#include <map>

namespace quorin::page {
namespace {

using document::Diagnosis;
using document::escapedHTML;

/// Of each line the columns at which something is told.
using Places = std::map<std::size_t, std::vector<std::size_t>>;

json::Position placeOf(const Diagnosis& one) { return one.position.value_or(json::Position{}); }

std::string anchorOf(const std::string& id, std::size_t line, std::size_t column) {
    return id + "-" + std::to_string(line) + "-" + std::to_string(column);
}

Places placesOf(const document::Checked& checked) {
    Places places;
    for (const Diagnosis& one : checked.diagnoses) places[placeOf(one).line].push_back(placeOf(one).column);
    for (auto& [line, columns] : places) columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    return places;
}

/// The byte at which the character number `column` of the line begins.
std::size_t byteOf(std::string_view line, std::size_t column) {
    std::size_t at = 0;
    while (at < line.size()) {
        const bool begins = (static_cast<unsigned char>(line[at]) & 0xC0U) != 0x80U;
        if (begins && --column == 0) return at;
        ++at;
    }
    return at;
}

/// How far what begins there reaches: a text to its quote, an object or a list shows its bracket, all else is a word.
std::size_t endOf(std::string_view line, std::size_t begin) {
    if (begin >= line.size()) return line.size();
    if (line[begin] == '{' || line[begin] == '[') return begin + 1;
    if (line[begin] != '"') return std::min(line.find_first_of(",]} \t", begin), line.size());
    std::size_t at = begin + 1;
    while (at < line.size() && line[at] != '"') at += line[at] == '\\' ? 2 : 1;
    return std::min(at + 1, line.size());
}

/// As it is shown: a tab is four blanks.
std::string shownText(std::string_view text) {
    std::string shown;
    for (const char c : text) c == '\t' ? shown += "    " : shown += c;
    return escapedHTML(shown);
}

std::string markedLine(std::string_view line, std::size_t number, const Places& places, const std::string& id) {
    const auto marked = places.find(number);
    std::string html;
    std::size_t done = 0;
    if (marked != places.end()) {
        for (const std::size_t column : marked->second) {
            const std::size_t begin = std::max(done, byteOf(line, column));
            const std::size_t end = endOf(line, begin);
            html += shownText(line.substr(done, begin - done)) + "<mark id=\"" + anchorOf(id, number, column) + "\">"
                    + shownText(line.substr(begin, end - begin)) + "</mark>";
            done = end;
        }
    }
    return "<li><span>" + html + shownText(line.substr(done)) + "</span></li>";
}

void takeText(const Source& source, const std::string& id, const LineTaker& take) {
    const Places places = placesOf(source.checked);
    take("<ol class=\"text\" tabindex=\"0\" aria-label=\"the text of the document\">");
    std::string_view rest = source.text;
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        take(markedLine(line, number, places, id));
    }
    take("</ol>");
}

/// What is wrong stands first.
constexpr std::array severities{Severity::error, Severity::warning, Severity::note};

/// Whose apps it concerns, where that are not those of all brands, or of none.
std::string readersOf(const Diagnosis& one) {
    const bool isOfSome = !one.brands.empty() && one.brands.size() < document::allBrands().size();
    return isOfSome ? " (" + document::namesOf(one.brands) + ")" : "";
}

std::string itemOf(const Diagnosis& one, const std::string& id) {
    const json::Position place = placeOf(one);
    const std::string_view severity = nameOf(one.kind.severity);
    return "<li><p>" + badge(severity, severity) + " <a href=\"#" + anchorOf(id, place.line, place.column) + "\"><code>"
           + escapedHTML(document::called(one.pointer)) + "</code> " + std::to_string(place.line) + ":"
           + std::to_string(place.column) + "</a></p>" + element("p", one.words() + readersOf(one))
           + "<p class=\"hint\">" + escapedHTML(one.hint()) + " [" + std::string(one.kind.code) + "]</p></li>";
}

}  // namespace

void findingsPart(const Source& source, const std::string& id, const LineTaker& take) {
    take("<div class=\"beside\">");
    take("<ul class=\"findings\" tabindex=\"0\" aria-label=\"findings\">");
    if (source.checked.diagnoses.empty()) take("<li>Nothing to tell.</li>");
    for (const Severity severity : severities)
        for (const Diagnosis& one : source.checked.diagnoses)
            if (one.kind.severity == severity) take(itemOf(one, id));
    take("</ul>");
    takeText(source, id, take);
    take("</div>");
}

std::string findingsInWords(const Source& source) {
    std::string words;
    for (const Severity severity : severities) {
        const std::size_t number = document::count(source.checked, severity);
        const std::string name(nameOf(severity));
        if (number > 0) words += " " + badge(name, std::to_string(number) + " " + name + (number == 1 ? "" : "s"));
    }
    return words.empty() ? "No findings." : words;
}

}  // namespace quorin::page
