#include "quorin/services/requests/Skell.hpp"

#include "quorin/context/HeaderKeys.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/URL.hpp"
#include "quorin/services/WebServiceHeaders.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include <string_view>

namespace quorin {
namespace {

using skell::RequestBody;
using skell::RequestBodyType;

/// `over` laid over `headers`: of two values of one name its own counts.
StringMap merged(StringMap headers, StringMap over) {
    over.merge(std::move(headers));
    return over;
}

void replaceAll(std::string& text, std::string_view key, std::string_view value) {
    if (key.empty()) return;
    for (auto at = text.find(key); at != text.npos; at = text.find(key, at + value.size()))
        text.replace(at, key.size(), value);
}

std::string urlOf(const BuildArguments& arguments) {
    std::string url = arguments.requestURL;
    if (arguments.urlMapping) {
        for (const auto& [key, value] : *arguments.urlMapping) replaceAll(url, key, value);
    }
    if (const auto query = ConfigurationManagerUtils::urlEncode(arguments.queryParameters))
        foundation::append(url, *query);
    return url;
}

StringMap headersOf(const BuildArguments& arguments, const Skell::Instance& manager) {
    StringMap headers = merged(arguments.requestHeaders, manager.defaultHeaders());
    if (arguments.removeUserAgent) {
        std::erase_if(headers,
                      [](const auto& header) { return rawvalues::sameFolded(header.first, HeaderKeys::userAgent); });
    }
    return headers;
}

std::optional<RequestBodyType> bodyTypeOf(const StringMap& headers, HTTPMethod method) {
    const auto header = headers.find(WebServiceHeaders::contentType);
    const auto type = header == headers.end() ? std::nullopt : ContentType::fromRawValue(header->second);
    if (!type) return std::nullopt;
    switch (*type) {
        case ContentType::JSON: return RequestBodyType::JSON;
        case ContentType::XML: return RequestBodyType::XML;
        case ContentType::urlEncoded:
            return method == HTTPMethod::POST ? std::optional<RequestBodyType>(RequestBodyType::urlEncoded)
                                              : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

Skell Skell::build(const APIParams& params, const WebService& service, const Instance& manager) {
    return build({.requestURL = service.url,
                  .requestMethod = service.method,
                  .requestHeaders = merged(service.headers(), params.headers().value_or(StringMap())),
                  .urlMapping = params.URLMapping(),
                  .queryParameters = params.queryParameters(),
                  .dictionaryRepresentation = params.dictionaryRepresentation(),
                  .removeUserAgent = params.removeUserAgent()},
                 manager);
}

Skell Skell::build(const BuildArguments& arguments, const Instance& manager) {
    Skell request = createSkell(arguments.requestMethod, urlOf(arguments));
    request.headers = headersOf(arguments, manager);
    const auto type = bodyTypeOf(request.headers, arguments.requestMethod);
    if (type && arguments.dictionaryRepresentation)
        request.body = RequestBody(*type, *arguments.dictionaryRepresentation);
    request.transport = manager.platform().transport;
    return request;
}

}  // namespace quorin
