// A host that uses a bit of each part of the library: consumer DOCUMENT
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/core/QuorinConfigManagerVersion.h"
#include "quorin/facade/KVTConfigurationManager.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Skell.hpp"

#include <cstdio>

using quorin::Brand;
using quorin::ConfigurationManager;

extern "C" void printVersion();

namespace {

/// No parameters at all; its vtable refers to the library's.
struct Params : quorin::APIParams {
    std::optional<quorin::DocumentMap> dictionaryRepresentation() const override { return std::nullopt; }
    bool hasValidParams() const override { return true; }
};

void printRequest(const ConfigurationManager::Instance& manager) {
    const auto& services = manager.configuration()->webServices;
    const auto found = services->find("login");
    if (found == services->end()) return;
    const auto request = quorin::Skell::build(Params{}, found->second, manager);
    std::printf("request: %s %s\n", std::string(request.method.rawValue()).c_str(), request.url.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::printf("C++: %s, %.1f\n", QuorinConfigManagerVersionString, QuorinConfigManagerVersionNumber);
    printVersion();

    quorin::Platform platform = quorin::Platform::standard({.name = "Consumer", .shortVersion = "1"});
    platform.store = std::make_shared<quorin::MorrStandard>(quorin::morr::Options{.path = ":memory:"});
    ConfigurationManager::Instance manager{platform};
    const auto loaded = quorin::rx::wait(manager.initialize(
        quorin::PathURL{argv[1]}, {.deviceID = "living-room", .brand = Brand::orvel, .version = "1.0"}));
    if (!loaded) {
        std::printf("error: %s\n", loaded.error().description().c_str());
        return 1;
    }
    std::printf("brand: %s\n", std::string((*loaded)->brand->rawValue()).c_str());
    std::printf("facade: brand %d\n", quorin::KVTConfigurationManager(manager).configuration()->brand().rawValue());
    printRequest(manager);
    manager.setKova("account");
    std::printf("KOVA: %s\n", manager.defaultHeaders()["KOVA"].c_str());

    const auto parsed = quorin::json::parse("{\"b\": [1, 2.5], \"a\": null}");
    std::printf("JSON: %s\n", quorin::json::print(*parsed.value()).c_str());
    return 0;
}
