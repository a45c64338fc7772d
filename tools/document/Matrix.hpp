#pragma once

#include "BrandViews.hpp"
#include "Fields.hpp"

#include <optional>
#include <string>
#include <vector>

namespace quorin::document {

/// Every field that the apps of any brand see in a document, side by side.
class Matrix {
public:
    /// The brands that read the same.
    struct Column {
        std::string name{};           ///< of the one brand, or `wholeDocument`
        std::vector<Brand> brands{};  ///< all that read it
        bool isOwn = false;           ///< they have a section of their own
        DocumentMap values{};         ///< archived form
    };

    /// One field. A section, map or list stands here only where one that is there has nothing in it.
    struct Row {
        std::string path{};
        Nodes values{};  ///< one a column, null where it is absent

        /// The first column with the usual value, absence included: the one that more than half of the brands with a
        /// section of their own have. Empty where there is no such value.
        std::optional<std::size_t> usual{};
    };

    static Matrix of(const DocumentMap& document);

    const std::vector<Column>& columns() const { return columns_; }
    const std::vector<Row>& rows() const { return rows_; }

    /// What stands there, or empty where it is absent.
    std::optional<json::Value> value(const Row& row, std::size_t column) const;

    /// Whether a brand with a section of its own has another value than the usual.
    bool isOutlier(const Row& row, std::size_t column) const;

    /// The names of the brands whose value is an outlier.
    std::vector<std::string> outliers(const Row& row) const;

private:
    void add(const Field& field);
    std::optional<std::size_t> usualOf(const Nodes& values) const;

    std::vector<Column> columns_{};
    std::vector<Row> rows_{};
};

}  // namespace quorin::document
