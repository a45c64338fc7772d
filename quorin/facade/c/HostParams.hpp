#pragma once

#include "quorin/services/requests/APIParams.hpp"

#include <optional>
#include <string_view>

namespace quorin::c {

/// Parameters that a host sets one after the other.
class HostParams : public APIParams {
public:
    static constexpr std::string_view objectName = "HostParams";

    struct Values {
        std::optional<StringMap> headers{};
        std::optional<StringMap> mapping{};
        std::optional<StringMap> query{};
        std::optional<DocumentMap> content{};
        bool areValid = false;
        bool removeUserAgent = false;
    };
    Values values{};

    std::optional<StringMap> headers() const override { return values.headers; }
    std::optional<StringMap> URLMapping() const override { return values.mapping; }
    std::optional<StringMap> queryParameters() const override { return values.query; }
    std::optional<DocumentMap> dictionaryRepresentation() const override { return values.content; }
    bool hasValidParams() const override { return values.areValid; }
    bool removeUserAgent() const override { return values.removeUserAgent; }
};

}  // namespace quorin::c
