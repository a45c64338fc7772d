#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The little Markdown that the reference is made of.
namespace quorin::keys::markdown {

inline std::string code(std::string_view text) { return "`" + std::string(text) + "`"; }

inline std::string row(const std::vector<std::string>& cells) {
    std::string line = "|";
    for (const std::string& cell : cells) line += (cell.empty() ? " " : " " + cell + " ") + "|";
    return line + "\n";
}

/// The first two lines of a table.
inline std::string columns(const std::vector<std::string>& titles) {
    return row(titles) + row(std::vector<std::string>(titles.size(), "---"));
}

template <class Texts>
std::string listed(const Texts& texts) {
    std::string line;
    for (const std::string_view text : texts) line += (line.empty() ? "" : ", ") + code(text);
    return line;
}

}  // namespace quorin::keys::markdown
