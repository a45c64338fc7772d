#include "Table.hpp"

#include "Output.hpp"

#include <algorithm>

namespace quorin::tool {
namespace {

std::size_t charactersOf(std::string_view text) {
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

/// What it asks of its column. A cell that is too long stands out alone, or each row would be as long.
std::size_t widthOf(std::string_view cell) {
    constexpr std::size_t widest = 120;
    const std::size_t characters = charactersOf(cell);
    return characters > widest ? 0 : characters;
}

}  // namespace

void Table::row(std::initializer_list<std::string_view> cells) {
    auto& row = rows_.emplace_back();
    for (const std::string_view cell : cells) row.push_back(withoutControls(cell));
}

void Table::row(std::span<const std::string> cells) {
    auto& row = rows_.emplace_back();
    for (const std::string& cell : cells) row.push_back(withoutControls(cell));
}

std::string Table::text() const {
    std::vector<std::size_t> widths;
    for (const auto& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    std::string lines;
    for (const auto& row : rows_) {
        std::string line(indent_, ' ');
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (widths[i] > 0) line.append(widths[i] - std::min(widths[i], charactersOf(row[i])) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        lines += line + "\n";
    }
    return lines;
}

}  // namespace quorin::tool
