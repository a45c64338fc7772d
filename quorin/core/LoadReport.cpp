#include "quorin/core/LoadReport.hpp"

#include "quorin/platform/foundation/SHA256.hpp"
#include "quorin/platform/json/Print.hpp"

namespace quorin {
namespace {

template <class List>
std::size_t sizeOf(const std::optional<List>& list) {
    return list ? list->size() : 0;
}

template <class... Sections>
std::size_t countOf(const Sections&... sections) {
    return (std::size_t{0} + ... + (sections ? 1 : 0));
}

}  // namespace

ReadCounts ReadCounts::of(const Configuration& read) {
    return {.sections =
                countOf(read.webServices, read.groups, read.common, read.appVersion, read.analytics, read.initialize,
                        read.auth, read.player, read.layouts, read.profile, read.applicationData, read.features),
            .webServices = sizeOf(read.webServices),
            .groups = sizeOf(read.groups),
            .features = sizeOf(read.features),
            .layouts = sizeOf(read.layouts),
            .analytics = sizeOf(read.analytics)};
}

std::string LoadReport::fingerprint() const {
    if (failure) return {};
    return foundation::sha256Hex(json::print(Value(content), json::Layout::compact));
}

}  // namespace quorin
