#include "quorin/facade/c/manager.h"

#include "quorin/facade/KVTConfigurationManager.hpp"
#include "quorin/facade/c/Call.hpp"

namespace {

namespace c = quorin::c;
using quorin::ConfigurationManager;
using quorin::KVTAnonymousBind;
using quorin::KVTBrand;
using quorin::KVTConfigurationManager;
using quorin::LoadArguments;
using quorin::MorrStandard;
using quorin::Platform;
using quorin::SwiftObservable;
using Instance = ConfigurationManager::Instance;

constexpr KVTConfigurationManager manager;

/// A text that the function yields, which may be none.
template <class Function>
quorin_status yield(Function function, c::Buffer buffer) noexcept {
    c::clear(buffer);
    return c::guarded([&] { return c::put(function(), buffer); });
}

SwiftObservable load(const std::string& url, const std::string& device, KVTBrand brand, const std::string& version) {
    if (brand == KVTBrand::undefined) return *manager.initialize(url, device, version);
    return *manager.initialize(url, device, brand, version);
}

template <class T>
quorin_status observer(quorin::rx::Observable<T> (Instance::*stream)() const, quorin_handle* observable) noexcept {
    return c::into(observable,
                   [&] { return c::put(SwiftObservable((manager.configurationManager().*stream)()), observable); });
}

}  // namespace

quorin_status quorin_install(quorin_text bundle_name, quorin_text bundle_version, quorin_text store_path) {
    return c::guarded([&]() -> quorin_status {
        if (!c::isValid(bundle_name) || !c::isValid(bundle_version) || !c::isValid(store_path))
            return QUORIN_INVALID_ARGUMENT;
        Platform platform =
            Platform::standard({.name = c::textOf(bundle_name), .shortVersion = c::textOf(bundle_version)});
        if (const auto path = c::textOf(store_path))
            platform.store = std::make_shared<MorrStandard>(quorin::morr::Options{.path = *path});
        return quorin::platform::install(platform) ? QUORIN_OK : QUORIN_REFUSED;
    });
}

quorin_status quorin_manager_initialize(quorin_text url, quorin_text device_id, int32_t brand, quorin_text version,
                                        quorin_handle* observable) {
    return c::into(observable, [&]() -> quorin_status {
        const auto address = c::textOf(url);
        const auto device = c::textOf(device_id);
        const auto known = KVTBrand::fromRawValue(brand);
        if (!address || !device || !known || !c::isValid(version)) return QUORIN_INVALID_ARGUMENT;
        return c::put(load(*address, *device, *known, c::textOf(version).value_or(LoadArguments().version)),
                      observable);
    });
}

quorin_status quorin_manager_configuration(quorin_handle* configuration) {
    return c::into(configuration, [&] { return c::put(manager.configuration(), configuration); });
}

quorin_status quorin_manager_configured(int32_t* configured) {
    return c::into(configured, [&] { return c::put(manager.configured() ? 1 : 0, configured); });
}

quorin_status quorin_manager_kova(char* buffer, uint64_t capacity, uint64_t* size) {
    return yield([] { return manager.kova(); }, {buffer, capacity, size});
}

quorin_status quorin_manager_set_kova(quorin_text value) {
    return c::guarded([&]() -> quorin_status {
        if (!c::isValid(value)) return QUORIN_INVALID_ARGUMENT;
        manager.setKova(c::textOf(value));
        return QUORIN_OK;
    });
}

quorin_status quorin_manager_profile_bind(quorin_handle* anonymous_bind) {
    return c::into(anonymous_bind, [&] { return c::put(manager.profileBind(), anonymous_bind); });
}

quorin_status quorin_manager_set_profile_bind(quorin_handle anonymous_bind) {
    if (anonymous_bind == QUORIN_NONE)
        return c::guarded([] {
            manager.setProfileBind(std::nullopt);
            return QUORIN_OK;
        });
    return c::with<KVTAnonymousBind>(anonymous_bind, [](const KVTAnonymousBind& bind) {
        manager.setProfileBind(bind);
        return QUORIN_OK;
    });
}

quorin_status quorin_manager_user_agent(char* buffer, uint64_t capacity, uint64_t* size) {
    return yield([] { return manager.userAgent(); }, {buffer, capacity, size});
}

quorin_status quorin_manager_support_card(char* buffer, uint64_t capacity, uint64_t* size) {
    return yield([] { return manager.supportCard(); }, {buffer, capacity, size});
}

quorin_status quorin_manager_set_user_agent(quorin_text existing) {
    return c::guarded([&]() -> quorin_status {
        const auto text = c::textOf(existing);
        if (!text) return QUORIN_INVALID_ARGUMENT;
        manager.setUserAgent(*text);
        return QUORIN_OK;
    });
}

quorin_status quorin_manager_kova_observer(quorin_handle* observable) {
    return observer(&Instance::kovaObserver, observable);
}
quorin_status quorin_manager_parent_profile_id_observer(quorin_handle* observable) {
    return observer(&Instance::parentProfileIDObserver, observable);
}
quorin_status quorin_manager_child_profile_id_observer(quorin_handle* observable) {
    return observer(&Instance::childProfileIDObserver, observable);
}
quorin_status quorin_manager_profile_jwt_observer(quorin_handle* observable) {
    return observer(&Instance::profileJWTObserver, observable);
}
