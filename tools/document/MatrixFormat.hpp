#pragma once

#include "Matrix.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A matrix as people and programs read it. Control characters are left to who prints the lines.
namespace quorin::document {

using LineTaker = std::function<void(const std::string&)>;

/// Cells of a table for a terminal, its head first: long values are cut, "-" is absent, "*" marks an outlier.
std::vector<std::vector<std::string>> textCells(const Matrix& matrix);

/// Who reads the whole document; empty where nobody does.
std::string legend(const Matrix& matrix);

/// Rows by RFC 4180 without their ends, the head first: the field, a cell a column, the names of outliers. Texts stand
/// as they are and all else as JSON; an absent value is an empty cell, an empty text is `""`. A text that a spreadsheet
/// takes for a formula gets an apostrophe in front.
void csvRows(const Matrix& matrix, const LineTaker& take);

/// One page that needs nothing else, line by line; `called` is what the document is called.
void htmlLines(const Matrix& matrix, std::string_view called, const LineTaker& take);

/// The table of such a page alone; `id` names its caption.
void htmlTable(const Matrix& matrix, std::string_view called, const std::string& id, const LineTaker& take);

/// For programs: `{"columns":[{"brands","name","section"}],"rows":[{"outliers","path","values"}]}`; values by the names
/// of their columns, without those that are absent.
DocumentMap recordOf(const Matrix& matrix);

}  // namespace quorin::document
