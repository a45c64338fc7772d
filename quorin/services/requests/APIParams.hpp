#pragma once

#include "quorin/table/Document.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// What a host says of one call of a service. A type of its own overrides what it needs; by default everything is
/// absent, and the call is refused, because a type must declare itself valid. Every function is asked on the
/// thread that asks the guard or builds the request.
class APIParams {
public:
    APIParams() = default;
    APIParams(const APIParams&) = default;
    APIParams& operator=(const APIParams&) = default;
    virtual ~APIParams() = default;

    /// Headers to add; they replace those of the service.
    virtual std::optional<StringMap> headers() const;

    /// The content of the body, which is sent where the headers and the method call for one.
    virtual std::optional<DocumentMap> dictionaryRepresentation() const;

    /// By default what `ConfigurationManagerUtils::urlEncode` makes of `queryParameters`. Building does not ask for it.
    virtual std::optional<std::string> urlEncodedString() const;

    /// Whether the call may be made, which `WebService::configurationGuard` asks.
    virtual bool hasValidParams() const;

    /// Texts of the service's URL, delimiters included, and what to put in their place.
    virtual std::optional<StringMap> URLMapping() const;

    /// Pairs of the query, not escaped.
    virtual std::optional<StringMap> queryParameters() const;

    /// Whether the request is to have no "User-Agent", whoever set it.
    virtual bool removeUserAgent() const;
};

}  // namespace quorin

#pragma GCC visibility pop
