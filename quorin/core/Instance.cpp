#include "quorin/core/Instance.hpp"

#include "quorin/context/ConfigurationManagerUtils.hpp"
#include "quorin/context/HeaderKeys.hpp"
#include "quorin/context/Snapshot.hpp"
#include "quorin/core/BrandSection.hpp"
#include "quorin/core/Loading.hpp"
#include "quorin/platform/rx/DoOnError.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/skell/Request.hpp"

#include <utility>

namespace quorin {
namespace {

rx::Result<ConfigurationManager::Instance::ConfigurationPointer> outcomeOf(const LoadReport& report) {
    if (report.failure) return report.failure->error;
    return report.configuration;
}

}  // namespace

/// What loads replace. A load that is under way keeps it, so it may end after its manager.
struct ConfigurationManager::Instance::Loaded {
    Snapshot<LoadReport> current{};  ///< of the last load that succeeded
    Snapshot<LoadReport> failed{};
    UserZ userZ{};

    /// First what takes memory, and may fail: a load that does leaves everything as it is.
    void adopt(LoadReport report, const Platform& services) {
        report.time = services.clock();
        auto next = std::make_shared<const LoadReport>(std::move(report));
        if (next->failure) return failed.set(std::move(next));
        userZ.set(ConfigurationManagerUtils::generateZ(services));
        current.set(std::move(next));
    }
};

ConfigurationManager::Instance::Instance(const Platform& platform)
    : platform_(platform.completed()), identity_(platform_), loaded_(std::make_shared<Loaded>()) {}

ConfigurationManager::Instance::~Instance() = default;

ConfigurationManager::Instance::ConfigurationPointer ConfigurationManager::Instance::configuration() const {
    auto report = loadReport();
    const Configuration* const read = report ? report->configuration.get() : nullptr;
    return {std::move(report), read};
}

std::shared_ptr<const LoadReport> ConfigurationManager::Instance::loadReport() const { return loaded_->current.get(); }
std::shared_ptr<const LoadReport> ConfigurationManager::Instance::failedLoad() const { return loaded_->failed.get(); }

rx::Observable<ConfigurationManager::Instance::ConfigurationPointer> ConfigurationManager::Instance::initialize(
    const std::string& url, LoadArguments arguments) const {
    auto request = skell::Request::GET(url);
    request.transport = platform_.transport;
    const auto tell = [url, arguments, loaded = loaded_, services = platform_](const rx::Error& error) {
        loaded->adopt(loading::reportOf(error, url, arguments), services);
    };
    const auto load = [url, arguments = std::move(arguments), loaded = loaded_,
                       services = platform_](const skell::Response& response) -> rx::Result<ConfigurationPointer> {
        LoadReport report = loading::reportOf(response, url, arguments);
        const rx::Result<ConfigurationPointer> result = outcomeOf(report);
        loaded->adopt(std::move(report), services);
        return result;
    };
    return rx::map(rx::doOnError(request.response(), tell), load);
}

rx::Observable<ConfigurationManager::Instance::ConfigurationPointer> ConfigurationManager::Instance::initialize(
    const PathURL& file, const LoadArguments& arguments) const {
    LoadReport report = loading::reportOf(file, arguments);
    auto delivering = report.failure ? rx::error<ConfigurationPointer>(report.failure->error)
                                     : rx::just(ConfigurationPointer(report.configuration));
    loaded_->adopt(std::move(report), platform_);
    return delivering;
}

SupportCard ConfigurationManager::Instance::supportCard() const {
    return {.app = platform_.bundle,
            .device = platform_.device,
            .locale = platform_.locale(),
            .store = platform_.store->status(),
            .load = loadReport(),
            .failed = failedLoad()};
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
