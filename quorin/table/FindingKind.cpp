#include "quorin/table/FindingKind.hpp"

#include "quorin/table/Conversion.hpp"

#include <array>

namespace quorin {
namespace {

using table::Conversion;

enum Index : std::size_t {
    wrongType,
    inQuotes,
    isNull,
    outOfRange,
    unknownText,
    missing,
    isEmpty,
    unknownMember,
    overridden,
    kindCount
};

constexpr std::array<FindingKind, kindCount> kinds{{
    {"wrong-type", Severity::error, "write a value of the expected type"},
    {"value-in-quotes", Severity::error, "write it without the quotes"},
    {"null-value", Severity::warning, "write a value, or leave the member out"},
    {"out-of-range", Severity::error, "write a number that 64 bits with a sign hold"},
    {"unknown-text", Severity::error, "write one of the texts that the field takes"},
    {"missing-value", Severity::error, "add the member"},
    {"empty-object", Severity::warning, "give it members, or leave it out"},
    {"unknown-member", Severity::note, "mend its name, or leave it out"},
    {"overridden-services", Severity::warning, "move them to the web services of the document, or take those away"},
}};

Index indexOf(const Finding& finding) {
    if (finding.cost == Cost::overridden) return overridden;
    if (finding.expected == nothing) return unknownMember;
    if (finding.expected == anyMembers) return isEmpty;
    if (finding.found == nothing) return missing;
    if (finding.found == quotedValue) return inQuotes;
    if (finding.found == otherText) return unknownText;
    if (finding.found == nameOf(json::Kind::null)) return isNull;
    const bool isNumber = finding.found == nameOf(json::Kind::integer);
    return isNumber && finding.expected == Conversion<Integer>::shape ? outOfRange : wrongType;
}

}  // namespace

std::string_view nameOf(Severity severity) {
    switch (severity) {
        case Severity::note: return "note";
        case Severity::warning: return "warning";
        case Severity::error: return "error";
    }
    return "unknown";
}

std::span<const FindingKind> findingKinds() { return kinds; }

const FindingKind& kindOf(const Finding& finding) { return kinds[indexOf(finding)]; }

}  // namespace quorin
