#include "Nearest.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quorin::document {
namespace {

/// How many letters must be added, taken away or exchanged to make one of the
/// other, whatever their case.
std::size_t distance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char c : left) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const bool same = rawvalues::lower(c) == rawvalues::lower(right[j]);
            const std::size_t exchanged = diagonal + (same ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({exchanged, diagonal + 1, row[j] + 1});
        }
    }
    return row[right.size()];
}

}  // namespace

std::vector<std::string_view> near(std::string_view text, const std::vector<std::string_view>& known) {
    constexpr std::size_t longest = 64;
    std::vector<std::pair<std::size_t, std::string_view>> found;
    for (const std::string_view candidate : known) {
        const std::size_t limit = candidate.size() <= 4 ? 1 : 2;
        const std::size_t away = text.size() <= longest ? distance(text, candidate) : limit + 1;
        if (away <= limit && away < candidate.size()) found.emplace_back(away, candidate);
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string_view> near;
    near.reserve(found.size());
    for (const auto& [away, candidate] : found) near.push_back(candidate);
    return near;
}

std::string nearest(std::string_view text, const std::vector<std::string_view>& known) {
    const auto meant = near(text, known);
    std::string line;
    for (const std::string_view one : meant.empty() ? known : meant) (line += line.empty() ? "" : ", ") += one;
    return line;
}

}  // namespace quorin::document
