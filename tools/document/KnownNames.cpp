#include "KnownNames.hpp"

#include "quorin/table/Conversion.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

using table::Row;

bool stands(const Row& row) { return row.read && row.origin == Row::Origin::member; }

std::string_view nameOf(const Row& row) { return row.outer.empty() ? row.key : row.outer; }

/// Whether the field holds sections, each below a name or an index.
bool holdsMany(const Row& row) { return row.holds->shape != table::Conversion<DocumentMap>::shape; }

}  // namespace

std::vector<std::string_view> namesKnownAt(const KeyTable& table, std::span<const std::string> steps) {
    std::vector<std::string_view> names;
    if (steps.empty()) {
        for (const Row& row : table.rows) {
            if (stands(row)) names.push_back(nameOf(row));
        }
        return names;
    }
    for (const Row& row : table.rows) {
        if (!stands(row) || nameOf(row) != steps.front()) continue;
        if (!row.outer.empty()) {
            if (steps.size() == 1) names.push_back(row.inner);
            continue;
        }
        const std::size_t consumed = row.holds->section && holdsMany(row) ? 2 : 1;
        if (!row.holds->section || steps.size() < consumed) return {};
        return namesKnownAt(row.holds->section(), steps.subspan(consumed));
    }
    return names;
}

}  // namespace quorin::document
