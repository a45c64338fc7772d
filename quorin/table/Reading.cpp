#include "quorin/table/Reading.hpp"

#include "quorin/platform/json/Pointer.hpp"

#include <algorithm>
#include <vector>

namespace quorin::table {
namespace {

std::string pointerTo(const Trail& trail) {
    std::vector<const Trail*> steps;
    for (const Trail* step = &trail; step->outer; step = step->outer) steps.push_back(step);
    std::string pointer;
    std::for_each(steps.rbegin(), steps.rend(), [&](const Trail* step) {
        if (step->key.data())
            json::appendStep(pointer, step->key);
        else
            json::appendStep(pointer, std::to_string(step->index));
    });
    return pointer;
}

Cost costOf(const Trail& trail) {
    switch (trail.role) {
        case Role::root: return Cost::nothingRead;
        case Role::field: return Cost::fieldAbsent;
        case Role::required: return costOf(*trail.outer);
        case Role::defaulted: return Cost::defaultUsed;
        case Role::element: return Cost::elementDropped;
        case Role::entry: return Cost::entryDropped;
        case Role::listPart: return Cost::listDropped;
        case Role::mapPart: return Cost::mapDropped;
    }
    return Cost::nothingRead;
}

}  // namespace

bool Reading::tell(std::string_view expected, std::string_view found) const {
    report_->add({pointerTo(*trail_), expected, found, costOf(*trail_), {}});
    return false;
}

void Reading::notAsked(const Node& found) const {
    report_->add({pointerTo(*trail_), "nothing", nameOf(found.kind), Cost::notAsked, {}});
}

}  // namespace quorin::table
