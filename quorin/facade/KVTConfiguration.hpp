#pragma once

#include "quorin/facade/KVTApplicationData.hpp"
#include "quorin/facade/KVTBrand.hpp"
#include "quorin/facade/KVTFeature.hpp"
#include "quorin/facade/KVTWebService.hpp"
#include "quorin/facade/Wrapper.hpp"
#include "quorin/model/Configuration.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// A configuration as an object.
class KVTConfiguration : public Wrapper<Configuration> {
public:
    static constexpr std::string_view objectName = "KVTConfiguration";
    using Wrapper::Wrapper;

    /// Of what `encode` wrote; empty where that makes none.
    static std::optional<KVTConfiguration> fromEncoded(const DocumentMap& encoded) {
        return read<KVTConfiguration>(encoded);
    }

    const Configuration& configuration() const { return *native(); }

    KVTBrand brand() const { return KVTBrand(configuration().brand); }
    std::optional<std::string> device() const { return configuration().device; }
    std::optional<std::string> version() const { return configuration().version; }

    /// Made anew at each call, of values that go on belonging to the configuration and keep it.
    std::optional<MapOf<KVTWebService>> webServices() const;
    std::optional<MapOf<KVTFeature>> features() const;
    std::optional<KVTApplicationData> applicationData() const;
};

}  // namespace quorin

#pragma GCC visibility pop
