#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// Settings of sign-in and authorisation (document key "auth").
struct Auth {
    std::optional<std::string> authZErrorMessage{};
    std::optional<std::string> authUrl{};
    std::optional<std::string> requestorId{};
    std::optional<Integer> initTimeout{};
    std::optional<bool> sso{};
    std::optional<std::vector<std::string>> preAuthChannels{};
    std::optional<Integer> promptLimit{};

    struct Keys {
        static constexpr std::string_view authZErrorMessage = "authZErrorMessage";
        static constexpr std::string_view authUrl = "authUrl";
        static constexpr std::string_view requestorId = "requestorId";
        static constexpr std::string_view initTimeout = "initTimeout";
        static constexpr std::string_view sso = "sso";
        static constexpr std::string_view preAuthChannels = "preAuthChannels";
        static constexpr std::string_view promptLimit = "promptLimit";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Auth> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Auth> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Auth&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
