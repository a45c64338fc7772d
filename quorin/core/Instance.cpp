#include "quorin/core/Instance.hpp"

#include "quorin/context/ConfigurationManagerUtils.hpp"
#include "quorin/context/HeaderKeys.hpp"
#include "quorin/context/Snapshot.hpp"
#include "quorin/core/BrandSection.hpp"
#include "quorin/core/Loading.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/skell/Json.hpp"
#include "quorin/platform/skell/Request.hpp"

#include <utility>

namespace quorin {
namespace {

/// The arguments of a load whose report comes to the host's place only when the load is done.
struct Reporting {
    explicit Reporting(const LoadArguments& given) : arguments(given), place(given.report) {
        if (place) arguments.report = std::make_shared<ReadReport>();
    }

    void handOver() const {
        if (place) *place = std::move(*arguments.report);
    }

    LoadArguments arguments;
    std::shared_ptr<ReadReport> place;
};

}  // namespace

/// What loads replace. A load that is under way keeps it, so it may end after its manager.
struct ConfigurationManager::Instance::Loaded {
    Snapshot<Configuration> configuration{};
    UserZ userZ{};

    /// First what takes memory, and may fail: a failed load leaves everything as it is.
    void adopt(ConfigurationPointer next, std::string zone, const Reporting& reporting) {
        userZ.set(std::move(zone));
        configuration.set(std::move(next));
        reporting.handOver();
    }
};

ConfigurationManager::Instance::Instance(const Platform& platform)
    : platform_(platform.completed()), identity_(platform_), loaded_(std::make_shared<Loaded>()) {}

ConfigurationManager::Instance::~Instance() = default;

ConfigurationManager::Instance::ConfigurationPointer ConfigurationManager::Instance::configuration() const {
    return loaded_->configuration.get();
}

rx::Observable<ConfigurationManager::Instance::ConfigurationPointer> ConfigurationManager::Instance::initialize(
    const std::string& url, LoadArguments arguments) const {
    auto request = skell::Request::GET(url);
    request.transport = platform_.transport;
    const auto load = [arguments = std::move(arguments), loaded = loaded_,
                       services = platform_](const skell::Response& response) -> rx::Result<ConfigurationPointer> {
        const auto document = skell::jsonObject(response);
        if (!document) return document.error();
        const Reporting reporting(arguments);
        auto configuration = loading::configurationIn(*document, response.body(), reporting.arguments);
        if (configuration) loaded->adopt(*configuration, ConfigurationManagerUtils::generateZ(services), reporting);
        return configuration;
    };
    return rx::map(request.response(), load);
}

rx::Observable<ConfigurationManager::Instance::ConfigurationPointer> ConfigurationManager::Instance::initialize(
    const PathURL& file, const LoadArguments& arguments) const {
    const Reporting reporting(arguments);
    const auto configuration = loading::configurationAt(file, reporting.arguments);
    if (!configuration) return rx::error<ConfigurationPointer>(configuration.error());
    auto delivering = rx::just(*configuration);
    loaded_->adopt(*configuration, ConfigurationManagerUtils::generateZ(platform_), reporting);
    return delivering;
}

DocumentMap ConfigurationManager::Instance::config(const DocumentMap& json, std::optional<Brand> brand) {
    return BrandSection::of(json, brand).map;
}

std::string ConfigurationManager::Instance::userZ() const { return loaded_->userZ.value(platform_); }
void ConfigurationManager::Instance::setUserZ(std::string value) { loaded_->userZ.set(std::move(value)); }

StringMap ConfigurationManager::Instance::defaultHeaders() const {
    StringMap headers = identity_.headers();
    const auto current = configuration();
    if (current && current->version) headers.emplace(HeaderKeys::appversion, *current->version);
    headers.emplace(HeaderKeys::userZ, userZ());
    return headers;
}

}  // namespace quorin
