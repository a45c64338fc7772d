#include "quorin/services/WebService.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& WebService::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&WebService::name>(Keys::name).orName(),
        field<&WebService::url>(Keys::url).inside(Keys::url, Keys::value),
        field<&WebService::method>(Keys::method),
        field<&WebService::acceptHeader>(WebServiceHeaders::accept).inside(Keys::header, WebServiceHeaders::accept),
        field<&WebService::contentTypeHeader>(WebServiceHeaders::contentType)
            .inside(Keys::header, WebServiceHeaders::contentType)
            .orInitial(),
    };
    static constexpr KeyTable keys =
        table::of<WebService>("WebService", "One endpoint that the app may call; its URL may hold placeholders", rows);
    return keys;
}

StringMap WebService::headers() const {
    StringMap headers{{std::string(WebServiceHeaders::contentType), std::string(contentTypeHeader.rawValue())}};
    if (acceptHeader) headers.emplace(WebServiceHeaders::accept, acceptHeader->rawValue());
    return headers;
}

std::optional<WebService> WebService::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<WebService>(json, report);
}
std::optional<WebService> WebService::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<WebService>(encoded, report);
}
DocumentMap WebService::encode() const { return section::encode(*this); }

}  // namespace quorin
