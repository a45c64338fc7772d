// Compiled without run-time types and without exceptions: a host needs neither.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/core/ConfigurationManagerError.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Json.hpp"
#include "quorin/platform/skell/Request.hpp"
#include "quorin/table/Archivable.hpp"

namespace quorin {

/// What a load of `path` ends with, asked the way a host would.
std::string endOfLoad(ConfigurationManager::Instance& manager, const std::string& path) {
    const auto loaded = rx::wait(manager.initialize(PathURL{path}, {.deviceID = "D", .brand = Brand::orvel}));
    if (loaded) return json::print((*loaded)->encode());
    const auto* const oops = loaded.error().as<Oops>();
    return oops ? oops->description() : "another error";
}

}  // namespace quorin
