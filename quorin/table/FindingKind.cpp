#include "quorin/table/FindingKind.hpp"

#include "quorin/table/Conversion.hpp"

#include <algorithm>
#include <array>

namespace quorin {
namespace {

using table::Conversion;

enum Index : std::size_t {
    wrongType,
    inQuotes,
    isNull,
    nullLoss,
    outOfRange,
    unknownText,
    missing,
    isEmpty,
    unknownMember,
    overridden,
    kindCount
};

/// In the order in which they are listed. Each has its place by its name.
constexpr auto kinds = [] {
    using enum Severity;
    std::array<FindingKind, kindCount> all{};
    all[wrongType] = {"wrong-type", error, "write a value of the expected type"};
    all[inQuotes] = {"value-in-quotes", error, "write it without the quotes"};
    all[isNull] = {"null-value", warning, "write a value, or leave the member out"};
    all[nullLoss] = {"null-loss", error, "write a value, or leave out the element or the entry"};
    all[outOfRange] = {"out-of-range", error, "write a number that 64 bits with a sign hold"};
    all[unknownText] = {"unknown-text", error, "write one of the texts that the field takes"};
    all[missing] = {"missing-value", error, "add the member"};
    all[isEmpty] = {"empty-object", warning, "give it members, or leave it out"};
    all[unknownMember] = {"unknown-member", note, "mend its name, or leave it out"};
    all[overridden] = {"overridden-services", warning,
                       "move them to the web services of the document, or take those away"};
    return all;
}();

static_assert(std::ranges::none_of(kinds, [](const FindingKind& kind) { return kind.code.empty(); }),
              "every index needs its kind");

/// Null reads as if nothing stood there. Where that takes no more along than the member, little is lost.
Index indexOfNull(Cost cost) { return cost == Cost::fieldAbsent || cost == Cost::defaultUsed ? isNull : nullLoss; }

Index indexOf(const Finding& finding) {
    if (finding.cost == Cost::overridden) return overridden;
    if (finding.expected == nothing) return unknownMember;
    if (finding.expected == anyMembers) return isEmpty;
    if (finding.found == nothing) return missing;
    if (finding.found == quotedValue) return inQuotes;
    if (finding.found == otherText) return unknownText;
    if (finding.found == nameOf(json::Kind::null)) return indexOfNull(finding.cost);
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
