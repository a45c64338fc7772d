#include "quorin/platform/skell/TransferSetup.hpp"

#include "quorin/platform/foundation/Trimmed.hpp"
#include "quorin/platform/skell/ContentDecoder.hpp"

#include <algorithm>
#include <limits>
#include <new>
#include <string_view>

namespace quorin::skell {
namespace {

/// A list of libcurl's that grows at its end.
class Lines {
public:
    void add(const std::string& line) {
        curl_slist* longer = curl().slist_append(list_, line.c_str());
        if (!longer) {
            curl().slist_free_all(list_);
            throw std::bad_alloc();
        }
        list_ = longer;
    }
    curl_slist* list() const { return list_; }

private:
    curl_slist* list_ = nullptr;
};

long milliseconds(std::chrono::milliseconds time) {
    constexpr std::chrono::milliseconds::rep most = std::numeric_limits<int>::max();  // libcurl takes no more
    return static_cast<long>(std::clamp<std::chrono::milliseconds::rep>(time.count(), 1, most));
}

}  // namespace

curl_slist* headerLines(const Hop& hop) {
    Lines lines;
    for (const auto& [name, value] : hop.headers) {
        const std::string_view text = foundation::trimmed(value);
        lines.add(text.empty() ? name + ";" : name + ": " + std::string(text));  // libcurl's form of an empty value
    }
    if (!hop.has("Accept-Encoding")) lines.add("Accept-Encoding: " + std::string(ContentDecoder::offered));
    for (const char* own : {"Accept", "Content-Type", "Expect"}) {
        if (!hop.has(own)) lines.add(std::string(own) + ":");  // keeps libcurl from adding it
    }
    return lines.list();
}

void TransferSetup::connection(const Transport& transport, std::chrono::milliseconds left) {
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L);  // a name being resolved holds up neither the end of its transfer nor the other ones
    set(CURLOPT_TIMEOUT_MS, milliseconds(left));
    set(CURLOPT_CONNECTTIMEOUT_MS, milliseconds(transport.connectTimeout));
    set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    set(CURLOPT_SSL_VERIFYPEER, 1L);
    set(CURLOPT_SSL_VERIFYHOST, 2L);
    set(CURLOPT_PROXY_SSL_VERIFYPEER, 1L);
    set(CURLOPT_PROXY_SSL_VERIFYHOST, 2L);
    if (transport.caFile) {
        set(CURLOPT_CAINFO, transport.caFile->c_str());
        set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    }
    if (transport.proxy) set(CURLOPT_PROXY, transport.proxy->c_str());
    set(CURLOPT_HEADEROPT, static_cast<long>(CURLHEADER_SEPARATE));
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
}

void TransferSetup::message(const Hop& hop, curl_slist* lines) {
    const bool isConnect = hop.method == HTTPMethod::CONNECT;  // over HTTP/2 it has no path
    set(CURLOPT_HTTP_VERSION, static_cast<long>(isConnect ? CURL_HTTP_VERSION_1_1 : CURL_HTTP_VERSION_2TLS));
    set(CURLOPT_URL, hop.url.c_str());
    set(CURLOPT_HTTPHEADER, lines);
    if (hop.method == HTTPMethod::HEAD && !hop.body) set(CURLOPT_NOBODY, 1L);
    if (hop.body || announcesBody(hop.method)) {
        set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(hop.body ? hop.body->size() : 0));
        set(CURLOPT_POSTFIELDS, hop.body ? hop.body->data() : "");
    }
    set(CURLOPT_CUSTOMREQUEST, std::string(hop.method.rawValue()).c_str());
}

SkellError::Kind kindOf(CURLcode code, CURL* easy) {
    long tunnelStatus = 0;
    switch (code) {
        case CURLE_URL_MALFORMAT: return SkellError::Kind::invalidURL;
        case CURLE_BAD_FUNCTION_ARGUMENT:
        case CURLE_UNKNOWN_OPTION:
        case CURLE_NOT_BUILT_IN: return SkellError::Kind::invalidRequest;
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_COULDNT_RESOLVE_PROXY: return SkellError::Kind::resolve;
        case CURLE_COULDNT_CONNECT:
        case CURLE_INTERFACE_FAILED:
        case CURLE_PROXY: return SkellError::Kind::connect;
        case CURLE_OPERATION_TIMEDOUT: return SkellError::Kind::timeout;
        case CURLE_SSL_CONNECT_ERROR:
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CACERT_BADFILE:
        case CURLE_SSL_CERTPROBLEM:
        case CURLE_SSL_CIPHER:
        case CURLE_SSL_ISSUER_ERROR:
        case CURLE_SSL_CLIENTCERT:
        case CURLE_SSL_CRL_BADFILE:
        case CURLE_SSL_ENGINE_INITFAILED:
        case CURLE_SSL_INVALIDCERTSTATUS:
        case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
        case CURLE_USE_SSL_FAILED: return SkellError::Kind::tls;
        case CURLE_BAD_CONTENT_ENCODING: return SkellError::Kind::decoding;
        case CURLE_RECV_ERROR:  // also when a proxy refuses the tunnel
            curl().easy_getinfo(easy, CURLINFO_HTTP_CONNECTCODE, &tunnelStatus);
            return tunnelStatus >= 300 ? SkellError::Kind::connect : SkellError::Kind::network;
        default: return SkellError::Kind::network;
    }
}

std::string whatOf(SkellError::Kind kind) {
    switch (kind) {
        case SkellError::Kind::invalidURL: return "not a URL to request";
        case SkellError::Kind::invalidRequest: return "a request that cannot be set up";
        case SkellError::Kind::resolve: return "an unknown host name";
        case SkellError::Kind::connect: return "no connection";
        case SkellError::Kind::tls: return "no trusted TLS connection";
        case SkellError::Kind::timeout: return "no complete response in the time allowed";
        case SkellError::Kind::decoding: return "a transfer encoding that cannot be undone";
        default: return "no whole HTTP response";
    }
}

}  // namespace quorin::skell
