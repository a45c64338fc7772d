// Building requests, against the HTTP library's own functions for the same.
#include "quorin/platform/foundation/URL.hpp"
#include "quorin/services/requests/Skell.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include "bench/Ours.hpp"
#include "bench/Rows.hpp"

#include <curl/curl.h>

namespace quorin::bench {
namespace {

const StringMap query{{"q", "the blue whale & other giants"}, {"page", "12"}, {"sort", "title:asc"}};
constexpr const char* address = "https://search.vexo.example/v1/series/search";

std::string escapedByCurl(const StringMap& pairs) {
    std::string text;
    for (const auto& [name, value] : pairs) {
        char* const key = curl_easy_escape(nullptr, name.data(), static_cast<int>(name.size()));
        char* const escaped = curl_easy_escape(nullptr, value.data(), static_cast<int>(value.size()));
        if (!text.empty()) text += '&';
        text.append(key).append("=").append(escaped);
        curl_free(escaped);
        curl_free(key);
    }
    return text;
}

std::string urlByCurl() {
    CURLU* const url = curl_url();
    curl_url_set(url, CURLUPART_URL, address, 0);
    for (const auto& [name, value] : query)
        curl_url_set(url, CURLUPART_QUERY, (name + "=" + value).c_str(), CURLU_APPENDQUERY | CURLU_URLENCODE);
    char* text = nullptr;
    curl_url_get(url, CURLUPART_URL, &text, 0);
    std::string made = text;
    curl_free(text);
    curl_url_cleanup(url);
    return made;
}

std::size_t requestByCurl(const StringMap& headers) {
    const std::string url = urlByCurl();
    curl_slist* list = nullptr;
    for (const auto& [name, value] : headers) list = curl_slist_append(list, (name + ": " + value).c_str());
    curl_slist_free_all(list);
    return url.size();
}

struct Search : APIParams {
    std::optional<StringMap> URLMapping() const override { return StringMap{{"{kind}", "series"}}; }
    std::optional<StringMap> queryParameters() const override { return query; }
    bool hasValidParams() const override { return true; }
};

}  // namespace

Rows requestRows() {
    static auto& manager = *new ConfigurationManager::Instance(platformOn(std::string(morr::memoryPath)));
    const WebService service{.name = "search",
                             .url = "https://search.vexo.example/v1/{kind}/search",
                             .contentTypeHeader = ContentType::JSON,
                             .acceptHeader = ContentType::JSON};
    const StringMap headers = Skell::build(Search(), service, manager).headers;

    add("encode-query", [] { return ConfigurationManagerUtils::urlEncode(query); });
    add("escape-query", [] { return escapedByCurl(query); });
    add("url", [] {
        std::string url = address;
        foundation::append(url, *ConfigurationManagerUtils::urlEncode(query));
        return url;
    });
    add("url-curl", [] { return urlByCurl(); });
    add("request", [service] { return Skell::build(Search(), service, manager); });
    add("request-curl", [headers] { return requestByCurl(headers); });
    return {
        {"urlEncode / curl_easy_escape", "encode-query", "escape-query", 0.35, 0.17},
        {"URL of a request / the URL API of libcurl", "url", "url-curl", 0.4, 0.12},
        {"a whole request / the same with its header list", "request", "request-curl", 0.5, 0.22},
    };
}

}  // namespace quorin::bench
