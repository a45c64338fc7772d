#include "KindPage.hpp"

namespace quorin::document {
namespace {

std::string block(std::string_view text) { return "\n\n    " + std::string(text) + "\n"; }

}  // namespace

std::string pageOf(const Kind& kind) {
    const std::string example = kind.example.empty() ? "" : "For example:" + block(kind.example) + "\n";
    const std::string cure = kind.cure.empty() ? "\n" : block(kind.cure);
    return "## " + std::string(kind.finding.code) + "\n\n" + std::string(kind.title)
           + ". Severity: " + std::string(nameOf(kind.finding.severity)) + ".\n\n" + std::string(kind.cause) + "\n\n"
           + example + "What to do: " + std::string(kind.finding.hint) + "." + cure;
}

std::string pages() {
    std::string text =
        "# Findings\n\nWhat `quorin check` and the reports of loads tell, by their codes. `quorin explain CODE` prints "
        "one of "
        "these\nsections. Errors lose something of the document, warnings are most likely not meant, notes are worth a "
        "look.\n";
    for (const Kind& kind : kinds()) text += "\n" + pageOf(kind);
    return text;
}

}  // namespace quorin::document
