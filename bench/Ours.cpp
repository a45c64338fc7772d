#include "bench/Ours.hpp"

#include "quorin/core/Loading.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include <cstdlib>

namespace quorin::bench {

std::shared_ptr<const Configuration> load(const std::string& text, bool findings) {
    const auto document = *json::parse(text, text.capacity() - text.size()).value()->asObject();
    const auto report =
        loading::reportOf(document, text, "/a.json", {.deviceID = "D", .brand = Brand::orvel, .findings = findings});
    if (report.failure) std::abort();
    return report.configuration;
}

Platform platformOn(const std::string& store) {
    return {.store = std::make_shared<MorrStandard>(morr::Options{.path = store}),
            .transport = {.cookies = std::make_shared<foundation::HTTPCookieStorage>()},
            .bundle = {.name = "Bench", .shortVersion = "1"}};
}

void makeCurrent(const std::string& file) {
    static const bool isInstalled = platform::install(platformOn(std::string(morr::memoryPath)));
    if (!isInstalled) std::abort();
    auto& manager = ConfigurationManager::sharedInstance();
    if (!rx::wait(manager.initialize(PathURL{file}, {.brand = Brand::orvel}))) std::abort();
}

}  // namespace quorin::bench
