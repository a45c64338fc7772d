#include "quorin/services/requests/Skell.hpp"

#include "quorin/context/HeaderKeys.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/URL.hpp"
#include "quorin/services/WebServiceHeaders.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include <optional>
#include <string_view>

namespace quorin {
namespace {

using skell::RequestBodyType;

/// `over` laid over `headers`: of two values of one name its own counts.
StringMap merged(StringMap headers, StringMap over) {
    over.merge(std::move(headers));
    return over;
}

/// Puts `value` wherever `key` stands in `text`, and does not look again through what it put there.
void replaceAll(std::string& text, std::string_view key, std::string_view value) {
    if (key.empty()) return;
    std::string replaced;
    std::size_t rest = 0;
    for (auto at = text.find(key); at != text.npos; at = text.find(key, rest)) {
        replaced.append(text, rest, at - rest).append(value);
        rest = at + key.size();
    }
    if (rest > 0) text = std::move(replaced.append(text, rest));
}

void fill(std::string& url, const std::optional<StringMap>& mapping) {
    if (!mapping) return;
    for (const auto& [key, value] : *mapping) replaceAll(url, key, value);
}

void addQuery(std::string& url, const std::optional<StringMap>& parameters) {
    if (const auto query = ConfigurationManagerUtils::urlEncode(parameters)) foundation::append(url, *query);
}

void dropUserAgent(StringMap& headers) {
    std::erase_if(headers,
                  [](const auto& header) { return rawvalues::sameFolded(header.first, HeaderKeys::userAgent); });
}

std::optional<RequestBodyType> bodyTypeOf(const StringMap& headers, HTTPMethod method) {
    const auto header = headers.find(WebServiceHeaders::contentType);
    const auto type = header == headers.end() ? std::nullopt : ContentType::fromRawValue(header->second);
    if (type == ContentType::JSON) return RequestBodyType::JSON;
    if (type == ContentType::XML) return RequestBodyType::XML;
    if (type == ContentType::urlEncoded && method == HTTPMethod::POST) return RequestBodyType::urlEncoded;
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

Skell Skell::build(BuildArguments arguments, const Instance& manager) {
    Skell request = createSkell(arguments.requestMethod, std::move(arguments.requestURL));
    fill(request.url, arguments.urlMapping);
    addQuery(request.url, arguments.queryParameters);

    request.headers = merged(std::move(arguments.requestHeaders), manager.defaultHeaders());
    if (arguments.removeUserAgent) dropUserAgent(request.headers);

    const auto type = bodyTypeOf(request.headers, request.method);
    if (type && arguments.dictionaryRepresentation) request.body.emplace(*type, *arguments.dictionaryRepresentation);

    request.transport = manager.platform().transport;
    return request;
}

}  // namespace quorin
