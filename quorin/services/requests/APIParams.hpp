#pragma once

#include "quorin/table/Document.hpp"

#include <optional>
#include <string>

namespace quorin {

/// What a host says of one call of a service. A type of its own overrides what
/// it needs; by default everything is absent, and the call is refused, because
/// a type must declare itself valid. Every function is asked on the thread that
/// builds the request.
class APIParams {
public:
    APIParams() = default;
    APIParams(const APIParams&) = default;
    APIParams& operator=(const APIParams&) = default;
    virtual ~APIParams() = default;

    /// Headers to add; they replace those of the service.
    virtual std::optional<StringMap> headers() const;

    /// The content of the body.
    virtual std::optional<DocumentMap> dictionaryRepresentation() const;

    /// By default what `ConfigurationManagerUtils::urlEncode` makes of
    /// `queryParameters`.
    virtual std::optional<std::string> urlEncodedString() const;

    /// Whether the call may be made, which `WebService::configurationGuard` asks.
    virtual bool hasValidParams() const;

    /// Texts of the service's URL, delimiters included, and what to put in their
    /// place.
    virtual std::optional<StringMap> URLMapping() const;

    /// Pairs of the query.
    virtual std::optional<StringMap> queryParameters() const;

    /// Whether the request is to have no "User-Agent".
    virtual bool removeUserAgent() const;
};

}  // namespace quorin
