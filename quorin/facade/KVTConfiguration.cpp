#include "quorin/facade/KVTConfiguration.hpp"

namespace quorin {
namespace {

/// A reference to a part of a configuration, which it keeps.
template <class Part>
std::shared_ptr<const Part> partOf(const std::shared_ptr<const Configuration>& whole, const Part& part) {
    return {whole, &part};
}

template <class Facade, class Native>
std::optional<MapOf<Facade>> wrapped(const std::shared_ptr<const Configuration>& whole,
                                     const std::optional<MapOf<Native>>& sections) {
    if (!sections) return std::nullopt;
    std::optional<MapOf<Facade>> wrappers(std::in_place);
    for (const auto& [name, section] : *sections)
        wrappers->emplace_hint(wrappers->end(), name, Facade(partOf(whole, section)));
    return wrappers;
}

}  // namespace

std::optional<MapOf<KVTWebService>> KVTConfiguration::webServices() const {
    return wrapped<KVTWebService>(native(), configuration().webServices);
}

std::optional<MapOf<KVTFeature>> KVTConfiguration::features() const {
    return wrapped<KVTFeature>(native(), configuration().features);
}

std::optional<KVTApplicationData> KVTConfiguration::applicationData() const {
    if (!configuration().applicationData) return std::nullopt;
    return KVTApplicationData(partOf(native(), *configuration().applicationData));
}

}  // namespace quorin
