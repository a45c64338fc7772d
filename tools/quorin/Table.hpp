#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::tool {

/// Rows of texts whose columns stand under each other.
class Table {
public:
    /// `indent` blanks stand before each row.
    explicit Table(std::size_t indent = 0) : indent_(indent) {}

    void row(std::initializer_list<std::string_view> cells);
    void row(std::span<const std::string> cells);

    /// All rows, without control characters, each with a newline.
    std::string text() const;

private:
    std::size_t indent_;
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace quorin::tool
