#include "quorin/table/ReadReport.hpp"

#include <utility>

namespace quorin {
namespace {

// A hostile document could draw findings without end, each with a pointer of any length.
constexpr std::size_t mostFindings = 10'000;
constexpr std::size_t mostBytes = std::size_t{4} << 20;

}  // namespace

std::string_view nameOf(Cost cost) {
    switch (cost) {
        case Cost::fieldAbsent: return "field absent";
        case Cost::defaultUsed: return "default used";
        case Cost::elementDropped: return "element dropped";
        case Cost::entryDropped: return "entry dropped";
        case Cost::listDropped: return "whole list dropped";
        case Cost::mapDropped: return "whole map dropped";
        case Cost::nothingRead: return "nothing read";
        case Cost::notAsked: return "no reader asks for it";
        case Cost::overridden: return "the document's own stand in its place";
    }
    return "unknown";
}

void ReadReport::add(Finding finding) {
    if (!findings.empty() && findings.back() == finding) return;
    if (isFullFor(finding.pointer.size())) return void(++omitted);
    bytes_ += finding.pointer.size();
    findings.push_back(std::move(finding));
}

bool ReadReport::isFullFor(std::size_t pointerBytes) const {
    return findings.size() >= mostFindings || bytes_ + pointerBytes > mostBytes;
}

}  // namespace quorin
