#include "Command.hpp"
#include "DocumentSource.hpp"
#include "Source.hpp"
#include "Table.hpp"
#include "tools/document/MatrixFormat.hpp"

namespace quorin::tool {
namespace {

using document::Matrix;

struct Arguments {
    std::string source{};
    std::string format = "text";
};

void printText(const Matrix& matrix, Output& output) {
    Table table;
    for (const auto& cells : document::textCells(matrix)) table.row(cells);
    output.text(table.text());
    if (const std::string legend = document::legend(matrix); !legend.empty()) output.line(legend);
}

/// No row has a line end in a cell, because it is a control character.
void printCSV(const Matrix& matrix, Output& output) {
    document::csvRows(matrix, [&](const std::string& row) { output.text(withoutControls(row) + "\r\n"); });
}

void print(const Matrix& matrix, const Arguments& arguments, Output& output) {
    if (arguments.format == "json") return output.json(document::recordOf(matrix));
    if (arguments.format == "csv") return printCSV(matrix, output);
    if (arguments.format == "text") return printText(matrix, output);
    document::htmlLines(matrix, calledFile(arguments.source), [&](const std::string& line) { output.line(line); });
}

}  // namespace

void addMatrix(CLI::App& program, Action& chosen) {
    CLI::App& made = command(program, "matrix", "Print what the apps of each brand see, field by field",
                             "quorin matrix config.json --format html > matrix.html");
    const auto arguments = std::make_shared<Arguments>();
    addSource(made, "SOURCE", arguments->source).required();
    made.add_option("--format", arguments->format, "The form of the result: text (the default), csv, json or html")
        ->type_name("FORM")
        ->check(oneOf({"text", "csv", "json", "html"}));
    made.callback([arguments, &chosen] {
        chosen = [arguments](Session& session) -> Outcome {
            const auto read = documentAt(arguments->source, session);
            if (const auto* failure = std::get_if<Failure>(&read)) return *failure;
            print(Matrix::of(std::get<Document>(read).map), *arguments, session.output);
            return {};
        };
    });
}

}  // namespace quorin::tool
