#include "MatrixFormat.hpp"

#include "Path.hpp"

#include <algorithm>
#include <array>

namespace quorin::document {
namespace {

using json::Value;

constexpr std::size_t longestCell = 40;

/// What spreadsheets take for the beginning of a formula; the last four are the same signs in full width.
constexpr std::array<std::string_view, 8> formulaSigns{"=", "+", "-", "@", "＝", "＋", "－", "＠"};

std::string textCell(const Matrix& matrix, const Matrix::Row& row, std::size_t column) {
    const auto value = matrix.value(row, column);
    const std::string text = value ? shownShortly(*value, longestCell) : "-";
    return matrix.isOutlier(row, column) ? "* " + text : text;
}

std::string quoted(std::string_view text) {
    std::string cell = "\"";
    for (const char c : text) cell.append(c == '"' ? 2 : 1, c);
    return cell += '"';
}

std::string csvText(std::string_view text) {
    const bool isFormula = std::any_of(formulaSigns.begin(), formulaSigns.end(),
                                       [&](std::string_view sign) { return text.starts_with(sign); });
    return quoted(isFormula ? "'" + std::string(text) : std::string(text));
}

std::string csvCell(const std::optional<Value>& value) {
    if (!value) return "";
    const auto text = value->asString();
    if (!text) return quoted(shown(*value));
    return text->empty() ? quoted("\"\"") : csvText(*text);
}

std::string joinedNames(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : " ") + name;
    return text;
}

Value recordOf(const Matrix::Column& column) {
    return DocumentMap{{"brands", listOf(column.brands)},
                       {"name", column.name},
                       {"section", column.isOwn ? Value(column.brands.front().ID()) : Value()}};
}

Value recordOf(const Matrix& matrix, const Matrix::Row& row) {
    std::vector<DocumentMap::Member> values;
    for (std::size_t i = 0; i < matrix.columns().size(); ++i) {
        if (auto value = matrix.value(row, i)) values.emplace_back(matrix.columns()[i].name, *std::move(value));
    }
    const auto names = matrix.outliers(row);
    const std::vector<Value> outliers(names.begin(), names.end());
    return DocumentMap{{"outliers", json::List(outliers)}, {"path", row.path}, {"values", DocumentMap(values)}};
}

}  // namespace

std::vector<std::vector<std::string>> textCells(const Matrix& matrix) {
    std::vector<std::vector<std::string>> cells{{"FIELD"}};
    for (const auto& column : matrix.columns()) cells.front().push_back(column.name);
    for (const auto& row : matrix.rows()) {
        auto& line = cells.emplace_back();
        line.push_back(row.path);
        for (std::size_t i = 0; i < matrix.columns().size(); ++i) line.push_back(textCell(matrix, row, i));
    }
    return cells;
}

std::string legend(const Matrix& matrix) {
    const auto& last = matrix.columns().back();
    return last.isOwn ? "" : "The whole document is read by " + namesOf(last.brands) + ".";
}

void csvRows(const Matrix& matrix, const LineTaker& take) {
    std::string head = quoted("field");
    for (const auto& column : matrix.columns()) head += "," + quoted(column.name);
    take(head + "," + quoted("outliers"));
    for (const auto& row : matrix.rows()) {
        std::string line = csvText(row.path);
        for (std::size_t i = 0; i < matrix.columns().size(); ++i) line += "," + csvCell(matrix.value(row, i));
        take(line + "," + quoted(joinedNames(matrix.outliers(row))));
    }
}

DocumentMap recordOf(const Matrix& matrix) {
    std::vector<Value> columns;
    columns.reserve(matrix.columns().size());
    for (const auto& column : matrix.columns()) columns.push_back(recordOf(column));
    std::vector<Value> rows;
    rows.reserve(matrix.rows().size());
    for (const auto& row : matrix.rows()) rows.push_back(recordOf(matrix, row));
    return {{"columns", json::List(columns)}, {"rows", json::List(rows)}};
}

}  // namespace quorin::document
