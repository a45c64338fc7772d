#include "HTML.hpp"
#include "MatrixFormat.hpp"

#include <array>

namespace quorin::document {
namespace {

/// The colours are the reader's own, light or dark; an outlier is told by words, too.
constexpr std::array<std::string_view, 23> headOfPage{
    "<!DOCTYPE html>",
    "<html lang=\"en\">",
    "<head>",
    "<meta charset=\"utf-8\">",
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'\">",
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">",
    "<meta name=\"color-scheme\" content=\"light dark\">",
    "<title>What the apps of each brand see</title>",
    "<style>",
    ":root { color-scheme: light dark; }",
    "body { margin: 1rem; background: Canvas; color: CanvasText; font: 1rem/1.4 system-ui, sans-serif; }",
    ".scroll { overflow: auto; max-height: 90vh; border: 1px solid GrayText; }",
    ".scroll:focus-visible { outline: 3px solid Highlight; }",
    "table { border-collapse: collapse; }",
    "caption { text-align: left; padding: .5rem; }",
    "th, td { padding: .25rem .5rem; border: 1px solid GrayText; text-align: left; vertical-align: top; }",
    "th, td { unicode-bidi: isolate; overflow-wrap: anywhere; min-width: 6rem; }",
    "thead th { position: sticky; top: 0; background: Canvas; }",
    ".absent { font-style: italic; }",
    ".outlier { background: Mark; color: MarkText; }",
    "</style>",
    "</head>",
    "<body>",
};

std::string htmlCell(const Matrix& matrix, const Matrix::Row& row, std::size_t column) {
    const auto value = matrix.value(row, column);
    const bool isOutlier = matrix.isOutlier(row, column);
    const std::string text = value ? "<code>" + escapedHTML(shown(*value)) + "</code>" : "absent";
    if (isOutlier) return "<td class=\"outlier\">" + text + " <strong>(outlier)</strong></td>";
    return (value ? "<td>" : "<td class=\"absent\">") + text + "</td>";
}

std::string htmlRow(const Matrix& matrix, const Matrix::Row& row) {
    std::string line = "<tr><th scope=\"row\">" + escapedHTML(row.path) + "</th>";
    for (std::size_t i = 0; i < matrix.columns().size(); ++i) line += htmlCell(matrix, row, i);
    return line + "</tr>";
}

std::string htmlHead(const Matrix& matrix) {
    std::string line = "<thead><tr><th scope=\"col\">field</th>";
    for (const auto& column : matrix.columns()) line += "<th scope=\"col\">" + escapedHTML(column.name) + "</th>";
    return line + "</tr></thead>";
}

}  // namespace

void htmlTable(const Matrix& matrix, std::string_view called, const std::string& id, const LineTaker& take) {
    // The keyboard scrolls what it can reach.
    take("<div class=\"scroll\" role=\"region\" aria-labelledby=\"" + id + "\" tabindex=\"0\">");
    take("<table>");
    take("<caption id=\"" + id + "\">Fields of " + escapedHTML(called) + "</caption>");
    take(htmlHead(matrix));
    take("<tbody>");
    for (const auto& row : matrix.rows()) take(htmlRow(matrix, row));
    take("</tbody>");
    take("</table>");
    take("</div>");
}

void htmlLines(const Matrix& matrix, std::string_view called, const LineTaker& take) {
    for (const std::string_view line : headOfPage) take(std::string(line));
    take("<main>");
    take("<h1>What the apps of each brand see</h1>");
    take("<p>Outliers differ from the value that more than half of the brands with a section of their own have. "
         + escapedHTML(legend(matrix)) + "</p>");
    htmlTable(matrix, called, "caption", take);
    take("</main>");
    take("</body>");
    take("</html>");
}

}  // namespace quorin::document
