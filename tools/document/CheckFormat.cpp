#include "CheckFormat.hpp"

#include "BrandViews.hpp"
#include "Path.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

using json::DocumentMap;
using json::Value;

json::Position placeOf(const Diagnosis& diagnosis) { return diagnosis.position.value_or(json::Position{}); }

}  // namespace

std::size_t count(const Checked& checked, Severity severity) {
    const auto is = [&](const Diagnosis& one) { return one.kind.severity == severity; };
    return static_cast<std::size_t>(std::count_if(checked.diagnoses.begin(), checked.diagnoses.end(), is));
}

std::vector<std::string> lines(const CheckedSource& source) {
    std::vector<std::string> lines;
    for (const Diagnosis& one : source.checked.diagnoses) {
        const json::Position place = placeOf(one);
        lines.push_back(source.name + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) + ": "
                        + std::string(nameOf(one.kind.severity)) + ": " + std::string(called(one.pointer)) + ": "
                        + one.words() + " [" + std::string(one.kind.code) + "]");
        lines.push_back("    " + one.hint());
    }
    return lines;
}

std::vector<Value> records(const CheckedSource& source) {
    std::vector<Value> records;
    for (const Diagnosis& one : source.checked.diagnoses) {
        const json::Position place = placeOf(one);
        records.emplace_back(DocumentMap{{"source", source.name},
                                         {"code", one.kind.code},
                                         {"severity", nameOf(one.kind.severity)},
                                         {"pointer", one.pointer},
                                         {"line", place.line},
                                         {"column", place.column},
                                         {"expected", one.expected},
                                         {"found", one.found},
                                         {"cost", one.cost},
                                         {"hint", one.hint()},
                                         {"brands", listOf(one.brands)}});
    }
    return records;
}

}  // namespace quorin::document
