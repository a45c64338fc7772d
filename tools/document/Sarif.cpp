#include "quorin/core/QuorinConfigManagerVersion.h"

#include "CheckFormat.hpp"
#include "Kinds.hpp"

#include <algorithm>
#include <string_view>

namespace quorin::document {
namespace {

using json::DocumentMap;
using json::List;
using json::Value;

Value message(std::string_view text) { return DocumentMap{{"text", text}}; }

/// The path as a URI-reference (RFC 3986): what may not stand in one is
/// percent-encoded.
std::string asURI(std::string_view path) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    static constexpr std::string_view plain = "-._~/:?=&%[]@!$()*+,;";
    const bool isURL = path.find("://") != path.npos;
    std::string uri;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isWord = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (isWord || plain.substr(0, isURL ? plain.npos : 5).find(c) != plain.npos)
            uri += c;
        else
            uri.append({'%', digits[byte >> 4U], digits[byte & 15U]});
    }
    return uri;
}

Value rule(const Kind& kind) {
    return DocumentMap{{"id", kind.finding.code},
                       {"shortDescription", message(kind.title)},
                       {"fullDescription", message(kind.cause)},
                       {"help", message(kind.finding.hint)},
                       {"defaultConfiguration", DocumentMap{{"level", nameOf(kind.finding.severity)}}}};
}

std::size_t indexOf(const FindingKind& kind) {
    const auto all = kinds();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Kind& one) { return one.finding.code == kind.code; });
    return static_cast<std::size_t>(found - all.begin());
}

Value location(const std::string& uri, const Diagnosis& one) {
    const json::Position place = one.position.value_or(json::Position{});
    const DocumentMap physical{{"artifactLocation", DocumentMap{{"uri", uri}}},
                               {"region", DocumentMap{{"startLine", place.line}, {"startColumn", place.column}}}};
    const Value logical = DocumentMap{{"fullyQualifiedName", one.pointer}, {"kind", "member"}};
    return DocumentMap{{"physicalLocation", physical}, {"logicalLocations", List(std::vector{logical})}};
}

Value result(const std::string& uri, const Diagnosis& one) {
    return DocumentMap{{"ruleId", one.kind.code},
                       {"ruleIndex", indexOf(one.kind)},
                       {"level", nameOf(one.kind.severity)},
                       {"message", message(one.pointer + ": " + one.words() + "; " + one.hint())},
                       {"locations", List(std::vector{location(uri, one)})}};
}

}  // namespace

DocumentMap sarif(std::span<const CheckedSource> sources) {
    std::vector<Value> rules;
    for (const Kind& kind : kinds()) rules.push_back(rule(kind));
    std::vector<Value> results;
    for (const CheckedSource& source : sources) {
        const std::string uri = asURI(source.name);
        for (const Diagnosis& one : source.checked.diagnoses) results.push_back(result(uri, one));
    }
    const DocumentMap driver{{"name", "quorin"}, {"version", QuorinConfigManagerVersionString}, {"rules", List(rules)}};
    const Value run = DocumentMap{
        {"tool", DocumentMap{{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", List(results)}};
    return {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
            {"version", "2.1.0"},
            {"runs", List(std::vector{run})}};
}

}  // namespace quorin::document
