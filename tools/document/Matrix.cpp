#include "Matrix.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

using json::Node;

bool isSame(const Node* left, const Node* right) { return left && right ? json::equal(*left, *right) : left == right; }

Matrix::Column columnOf(const BrandView& view) {
    const bool isOwn = !view.section.name.empty();
    return {.name = std::string(isOwn ? view.brands.front().name() : wholeDocument),
            .brands = view.brands,
            .isOwn = isOwn,
            .values = view.values()};
}

}  // namespace

Matrix Matrix::of(const DocumentMap& document) {
    Matrix made;
    for (const auto& brands : alike({&document, 1}, allBrands()))
        made.columns_.push_back(columnOf(viewOf(document, brands)));
    Nodes configurations;
    for (const Column& column : made.columns_) configurations.push_back(&column.values.node());
    walk(Configuration::keyTable(), nullptr, configurations, [&](const Field& field) {
        made.add(field);
        return true;
    });
    return made;
}

void Matrix::add(const Field& field) {
    Nodes values = field.values;
    if (field.kind != Field::Kind::value) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (!field.isBare(i)) values[i] = nullptr;
        }
        if (std::all_of(values.begin(), values.end(), [](const Node* value) { return !value; })) return;
    }
    const auto usual = usualOf(values);
    rows_.push_back({field.path.text(), std::move(values), usual});
}

std::optional<std::size_t> Matrix::usualOf(const Nodes& values) const {
    const auto own = static_cast<std::size_t>(
        std::count_if(columns_.begin(), columns_.end(), [](const Column& column) { return column.isOwn; }));
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::size_t holders = 0;
        for (std::size_t j = i; columns_[i].isOwn && j < values.size(); ++j) {
            if (columns_[j].isOwn && isSame(values[i], values[j])) ++holders;
        }
        if (2 * holders > own) return i;
    }
    return std::nullopt;
}

std::optional<json::Value> Matrix::value(const Row& row, std::size_t column) const {
    const Node* const node = row.values[column];
    return node ? std::optional(columns_[column].values.value().at(*node)) : std::nullopt;
}

bool Matrix::isOutlier(const Row& row, std::size_t column) const {
    return row.usual && columns_[column].isOwn && !isSame(row.values[column], row.values[*row.usual]);
}

std::vector<std::string> Matrix::outliers(const Row& row) const {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (isOutlier(row, i)) names.push_back(columns_[i].name);
    }
    return names;
}

}  // namespace quorin::document
