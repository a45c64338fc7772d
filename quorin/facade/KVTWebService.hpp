#pragma once

#include "quorin/facade/KVTContentType.hpp"
#include "quorin/facade/KVTHTTPMethod.hpp"
#include "quorin/facade/Wrapper.hpp"
#include "quorin/services/WebService.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// An endpoint as an object.
class KVTWebService : public Wrapper<WebService> {
public:
    static constexpr std::string_view objectName = "KVTWebService";
    using Wrapper::Wrapper;

    /// Of what `encode` wrote; empty where that makes none.
    static std::optional<KVTWebService> fromEncoded(const DocumentMap& encoded) { return read<KVTWebService>(encoded); }

    const WebService& webService() const { return *native(); }

    /// Present, as `url` is.
    std::optional<std::string> name() const { return webService().name; }
    std::optional<std::string> url() const { return webService().url; }
    KVTHTTPMethod method() const { return KVTHTTPMethod(webService().method); }
    KVTContentType acceptHeader() const { return KVTContentType(webService().acceptHeader); }
    KVTContentType contentTypeHeader() const { return KVTContentType(webService().contentTypeHeader); }

    /// See `WebService::headers`.
    StringMap headers() const { return webService().headers(); }
};

}  // namespace quorin

#pragma GCC visibility pop
