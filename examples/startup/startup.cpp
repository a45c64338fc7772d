// An app's start-up: say who the app is, load the configuration of its brand, and use it.
//
//     startup URL-OR-PATH STORE

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include <cstdio>
#include <string>

using quorin::Brand;
using quorin::ConfigurationManager;
using quorin::LoadArguments;
using quorin::MorrStandard;
using quorin::PathURL;
using quorin::Platform;

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: startup URL-OR-PATH STORE\n", stderr);
        return 2;
    }
    // 1. Before anything else: what the library cannot know by itself.
    Platform platform = Platform::standard({.name = "Sample", .shortVersion = "2.4"});
    platform.store = std::make_shared<MorrStandard>(quorin::morr::Options{.path = argv[2]});
    quorin::platform::install(platform);

    // 2. The first access restores the identity. Observe what the app must follow.
    auto& manager = ConfigurationManager::sharedInstance();
    manager.childProfileIDObserver().subscribe(
        {.next = [](const std::string& profile) { std::printf("profile is now %s\n", profile.c_str()); }});

    // 3. Load. An app on a main loop subscribes; a program may wait.
    const LoadArguments arguments{.deviceID = "living-room", .brand = Brand::orvel, .version = "2.4"};
    const std::string source = argv[1];
    const auto loaded = quorin::rx::wait(source.starts_with("http") ? manager.initialize(source, arguments)
                                                                    : manager.initialize(PathURL{source}, arguments));
    if (!loaded) {
        std::fprintf(stderr, "no configuration: %s\n", loaded.error().description().c_str());
        return 1;
    }

    // 4. Use it. Absence is an answer, not an error.
    if (const auto features = ConfigurationManager::features()) std::printf("%zu features\n", features->size());
    if (const auto services = ConfigurationManager::webServices()) {
        for (const auto& [name, service] : *services)
            std::printf("%s: %s %s\n", name.c_str(), std::string(service.method.rawValue()).c_str(),
                        service.url.c_str());
    }
    manager.setChildProfileID("p-kids");
    for (const auto& [name, value] : manager.defaultHeaders()) std::printf("%s: %s\n", name.c_str(), value.c_str());
    return 0;
}
