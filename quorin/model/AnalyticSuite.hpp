#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// One analytics service of the app.
struct AnalyticSuite {
    std::optional<std::string> account{};
    std::optional<std::string> id{};
    std::optional<bool> logEvents{};
    std::optional<Integer> logLevel{};
    std::optional<std::string> server{};
    std::optional<std::string> sfCode{};
    std::optional<Integer> timeout{};
    std::optional<bool> enabled{};

    struct Keys {
        static constexpr std::string_view account = "account";
        static constexpr std::string_view id = "id";
        static constexpr std::string_view logEvents = "logEvents";
        static constexpr std::string_view logLevel = "logLevel";
        static constexpr std::string_view server = "server";
        static constexpr std::string_view sfCode = "sf_code";
        static constexpr std::string_view timeout = "timeout";
        static constexpr std::string_view enabled = "enabled";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<AnalyticSuite> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<AnalyticSuite> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const AnalyticSuite&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
