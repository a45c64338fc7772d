// A GET through a stream, against a handle of the HTTP library that is used again and again, from the same server.
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"

#include "bench/Documents.hpp"
#include "bench/Rows.hpp"
#include "tests/support/FaultServer.hpp"

#include <curl/curl.h>

#include <cstdio>
#include <cstdlib>

namespace quorin::bench {
namespace {

[[noreturn]] void fail(const std::string& reason) {
    std::fprintf(stderr, "no response: %s: the bench is broken\n", reason.c_str());
    std::exit(1);
}

std::size_t append(const char* bytes, std::size_t, std::size_t size, void* body) {
    static_cast<std::string*>(body)->append(bytes, size);
    return size;
}

/// The body, by the bare handle.
std::size_t bareGet(CURL* handle) {
    std::string body;
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    const CURLcode code = curl_easy_perform(handle);
    if (code != CURLE_OK) fail(curl_easy_strerror(code));
    return body.size();
}

std::size_t get(const skell::Request& request) {
    const auto response = rx::wait(request.response());
    if (!response) fail(response.error().description());
    return response->body().size();
}

}  // namespace

Rows transferRows() {
    // The connection stays open: both sides use theirs again, as with a real server.
    static const auto& server = *new support::FaultServer(
        [answer = support::answer(200, smallDocument())](const auto&, const auto& client) { client.send(answer); });
    CURL* const handle = curl_easy_init();
    curl_easy_setopt(handle, CURLOPT_URL, server.url("/a.json").c_str());
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, append);
    add("get", [request = skell::Request::GET(server.url("/a.json"))] { return get(request); });
    add("get-bare", [handle] { return bareGet(handle); });
    return {{"GET through a stream / a bare reused handle", "get", "get-bare", 1.6, 1.2}};
}

}  // namespace quorin::bench
