#pragma once

#include "quorin/table/FindingKind.hpp"

#include <span>
#include <string_view>

namespace quorin::document {

/// What is told of a kind of diagnosis: a page of docs/findings.md.
struct Kind {
    FindingKind finding{};
    std::string_view title{};
    std::string_view cause{};    ///< how it comes to be, and what it costs
    std::string_view example{};  ///< a document, or a part of one, that has it
    std::string_view cure{};     ///< the same part as it should be
};

/// All kinds: first those of the reader.
std::span<const Kind> kinds();

/// Null where there is no such code.
const Kind* kindNamed(std::string_view code);

/// The kinds that are no matter of the reader.
namespace kind {
extern const FindingKind misspeltMember;
extern const FindingKind repeatedMember;
extern const FindingKind noBrand;
extern const FindingKind noSection;
extern const FindingKind moreFindings;
extern const FindingKind unreadableURL;
extern const FindingKind openPlaceholder;
extern const FindingKind plainHTTP;
extern const FindingKind noBody;
}  // namespace kind

}  // namespace quorin::document
