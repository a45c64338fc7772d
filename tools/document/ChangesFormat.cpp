#include "ChangesFormat.hpp"

#include "Path.hpp"

#include <array>

namespace quorin::document {
namespace {

using json::Value;

constexpr std::size_t longestValue = 200;
constexpr std::array allGrades{Grade::breaks, Grade::behaviour, Grade::cosmetic};

std::string_view where(const BrandView& view) {
    return view.section.name.empty() ? "the whole document" : "its own section";
}

/// "1 breaks, 2 behaviour"
std::string countsOf(const std::vector<Change>& changes) {
    std::string text;
    for (const Grade grade : allGrades) {
        const std::size_t number = count(changes, grade);
        if (number > 0) text += (text.empty() ? "" : ", ") + std::to_string(number) + " " + std::string(nameOf(grade));
    }
    return text.empty() ? "equal" : text;
}

/// "5 -> 6", "appears: 6", "vanishes: 5"
std::string eventOf(const Change& change) {
    const auto told = [](const Value& value) { return shownShortly(value, longestValue); };
    if (!change.before) return "appears: " + told(*change.after);
    if (!change.after) return "vanishes: " + told(*change.before);
    const std::string before = told(*change.before);
    const std::string after = told(*change.after);
    return before + " -> " + after + (before == after ? " (they differ behind that)" : "");
}

std::string lineOf(const Change& change) {
    std::string line = "  " + std::string(nameOf(change.grade));
    line.resize(13, ' ');
    if (change.path.empty()) return line += change.why;
    line += change.path + "  " + eventOf(change);
    if (!change.why.empty()) line += "  (" + std::string(change.why) + ")";
    return line;
}

/// JSON text without the characters that end a code span or a cell, or that begin a tag where code is not known: within
/// a text of JSON, where alone they can stand, each is written by its number.
std::string code(const std::string& text) {
    constexpr std::string_view special = "`|<>&";
    constexpr std::string_view hex = "0123456789abcdef";
    std::string safe;
    for (const char c : text) {
        if (special.find(c) == special.npos)
            safe += c;
        else
            (((safe += "\\u00") += hex[static_cast<unsigned char>(c) >> 4U]) +=
             hex[static_cast<unsigned char>(c) & 0xFU]);
    }
    return safe.empty() ? "" : "`" + safe + "`";
}

std::string cell(const std::optional<Value>& value) { return value ? code(shownShortly(*value, longestValue)) : ""; }

std::string rowOf(const Change& change) {
    std::string row = "|";
    for (const std::string& text : {std::string(nameOf(change.grade)), code(change.path), cell(change.before),
                                    cell(change.after), std::string(change.why)})
        row += (text.empty() ? " " : " " + text + " ") + "|";
    return row;
}

Value sectionOf(const BrandView& view) { return view.section.name.empty() ? Value() : Value(view.section.name); }

Value recordOf(const Change& change) {
    std::vector<DocumentMap::Member> members{{"grade", nameOf(change.grade)}};
    if (!change.path.empty()) members.emplace_back("path", change.path);
    if (!change.why.empty()) members.emplace_back("why", change.why);
    if (change.before) members.emplace_back("old", *change.before);
    if (change.after) members.emplace_back("new", *change.after);
    return DocumentMap(members);
}

}  // namespace

std::string BrandChanges::title() const {
    const bool isWhole = before.section.name.empty() && after.section.name.empty();
    const std::string names = namesOf(before.brands);
    return isWhole ? std::string(wholeDocument) + " (" + names + ")" : names;
}

std::string BrandChanges::move() const {
    if (before.section.name.empty() == after.section.name.empty()) return "";
    return "reads " + std::string(where(before)) + " in OLD, " + std::string(where(after)) + " in NEW";
}

bool BrandChanges::isAs(const BrandChanges& other) const {
    return !changes.empty() && move() == other.move() && changes == other.changes;
}

std::vector<std::string> textLines(const BrandChanges& of, const BrandChanges* told) {
    std::vector<std::string> lines{of.title() + ": " + countsOf(of.changes)};
    if (told) return {lines.front() + ", as " + told->title()};
    if (const std::string move = of.move(); !move.empty()) lines.push_back("  " + move);
    for (const Change& change : of.changes) lines.push_back(lineOf(change));
    return lines;
}

std::vector<std::string> markdownLines(const BrandChanges& of, const BrandChanges* told) {
    const std::string as = told ? ", as " + told->title() : "";
    std::vector<std::string> lines{"## " + of.title(), "", "Differences: " + countsOf(of.changes) + as + "."};
    if (const std::string move = of.move(); !told && !move.empty()) lines.insert(lines.end(), {"", "It " + move + "."});
    lines.emplace_back();
    if (told || of.changes.empty()) return lines;
    lines.insert(lines.end(), {"| Grade | Field | Old | New | Why |", "|---|---|---|---|---|"});
    for (const Change& change : of.changes) lines.push_back(rowOf(change));
    lines.emplace_back();
    return lines;
}

DocumentMap recordOf(const BrandChanges& of) {
    std::vector<Value> changes;
    changes.reserve(of.changes.size());
    for (const Change& change : of.changes) changes.push_back(recordOf(change));
    return {{"brands", listOf(of.before.brands)},
            {"changes", json::List(changes)},
            {"equal", isUnnoticed(of.changes)},
            {"sections", DocumentMap{{"new", sectionOf(of.after)}, {"old", sectionOf(of.before)}}}};
}

}  // namespace quorin::document
