// A call of a configured endpoint: ask the guard, build the request, send it, read the response as a model.
//
//     bind URL-OR-PATH STORE

#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Models.hpp"
#include "quorin/services/requests/Skell.hpp"

#include <cstdio>
#include <optional>
#include <string>

using quorin::AnonymousBind;
using quorin::ConfigurationManager;
using quorin::DocumentMap;
using quorin::LoadArguments;
using quorin::MorrStandard;
using quorin::PathURL;
using quorin::Platform;
using quorin::Skell;
using quorin::WebService;

/// What the call is made of. A type of parameters must declare itself valid.
struct BindParams : quorin::APIParams {
    std::optional<DocumentMap> dictionaryRepresentation() const override {
        return DocumentMap{{"profile", ConfigurationManager::childProfileID()}};
    }
    bool hasValidParams() const override { return true; }
};

static quorin::rx::Observable<AnonymousBind> bindProfile(const WebService& service, const BindParams& params) {
    if (auto refused = service.configurationGuard<AnonymousBind>(params)) return *refused;
    return quorin::model<AnonymousBind>(Skell::build(params, service).response());
}

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: bind URL-OR-PATH STORE\n", stderr);
        return 2;
    }
    Platform platform = Platform::standard({.name = "Sample", .shortVersion = "2.4"});
    platform.store = std::make_shared<MorrStandard>(quorin::morr::Options{.path = argv[2]});
    quorin::platform::install(platform);

    auto& manager = ConfigurationManager::sharedInstance();
    const std::string source = argv[1];
    const auto loaded =
        quorin::rx::wait(source.starts_with("http") ? manager.initialize(source, LoadArguments{})
                                                    : manager.initialize(PathURL{source}, LoadArguments{}));
    const auto services = ConfigurationManager::webServices();
    if (!loaded || !services || !services->contains("anonymousBind")) {
        std::fputs("the configuration has no service anonymousBind\n", stderr);
        return 1;
    }
    const auto bind = quorin::rx::wait(bindProfile(services->find("anonymousBind")->second, BindParams()));
    if (!bind) {
        std::fprintf(stderr, "not bound: %s\n", bind.error().description().c_str());
        return 1;
    }
    manager.setProfileJWT(bind->profileJWT);
    std::printf("%s is bound\n", bind->profileID.c_str());
    return 0;
}
