#pragma once

#include "quorin/context/Platform.hpp"
#include "quorin/platform/foundation/UUID.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace quorin {

/// A platform whose facts are known: a phone, its app, and a store in a file of the test's own.
inline Platform phone(const std::string& store) {
    Platform platform = Platform::standard({.name = "Sample", .shortVersion = "2.4"});
    platform.store = std::make_shared<MorrStandard>(morr::Options{.path = store});
    platform.device = {.model = "iPhone9,1", .systemName = "iOS", .systemVersion = "10.3.1"};
    platform.transport.cookies = std::make_shared<foundation::HTTPCookieStorage>();
    platform.locale = [] { return std::string("en_US"); };
    return platform;
}

/// One start of an app after the other, over one store.
class Testbed {
public:
    Platform start() const { return phone(storePath()); }
    std::string storePath() const { return folder_.file("store.db"); }
    const support::TemporaryFolder& folder() const { return folder_; }

    /// The text in the file under `key`, as another process would read it.
    std::optional<std::string> stored(std::string_view key) const {
        MorrStandard store({.path = storePath()});
        const auto value = store.get(key);
        const auto* const text = value ? std::get_if<std::string>(&*value) : nullptr;
        return text ? std::optional(*text) : std::nullopt;
    }

    void put(std::string_view key, morr::StoredValue value) const {
        MorrStandard({.path = storePath()}).put(std::move(value), key);
    }

private:
    support::TemporaryFolder folder_{};
};

}  // namespace quorin
