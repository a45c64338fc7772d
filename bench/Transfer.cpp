// A GET through a stream, against a handle of the HTTP library that is used again and again, from the same server.
#include "quorin/platform/rx/Wait.hpp"
#include "quorin/platform/skell/Request.hpp"

#include "bench/Documents.hpp"
#include "bench/Rows.hpp"
#include "tests/support/FaultServer.hpp"

#include <curl/curl.h>
#include <sched.h>

#include <cstdio>
#include <cstdlib>
#include <future>

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

/// Requests of which each is sent by the handler of the one before, so that all is seen from the thread of the
/// requests.
class Chain {
public:
    Chain(skell::Request request, int length) : request_(std::move(request)), left_(length) {}

    std::size_t run() {
        send();
        done_.get_future().wait();
        return size_;
    }

private:
    void send() {
        request_.response().subscribe(
            {.next = [this](const skell::Response& response) { size_ += response.body().size(); },
             .error = [](const rx::Error& error) { fail(error.description()); },
             .completed = [this] { --left_ > 0 ? send() : done_.set_value(); }});
    }

    const skell::Request request_;
    int left_;
    std::size_t size_ = 0;
    std::promise<void> done_;
};

constexpr int chainLength = 20;

/// Keeps the calling thread, and all that it starts, on the processor that it is on. Otherwise the system wakes some
/// threads on the processor of those that wake them and others not, and that is most of what such a row would measure.
class OneProcessor {
public:
    OneProcessor() {
        sched_getaffinity(0, sizeof before_, &before_);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(processor(), &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OneProcessor() { sched_setaffinity(0, sizeof before_, &before_); }
    OneProcessor(const OneProcessor&) = delete;
    OneProcessor& operator=(const OneProcessor&) = delete;

private:
    static int processor() {
        static const int current = sched_getcpu();
        return current;
    }
    cpu_set_t before_{};
};

}  // namespace

Rows transferRows() {
    const OneProcessor forServerAndLoop;
    // The connection stays open: both sides use theirs again, as with a real server.
    static const auto& server = *new support::FaultServer(
        [answer = support::answer(200, smallDocument())](const auto&, const auto& client) { client.send(answer); });
    CURL* const handle = curl_easy_init();
    curl_easy_setopt(handle, CURLOPT_URL, server.url("/a.json").c_str());
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, append);
    const auto request = skell::Request::GET(server.url("/a.json"));
    get(request);  // starts the thread of the requests on this processor
    add("get", [request] {
        const OneProcessor same;
        return Chain(request, chainLength).run();
    });
    add("get-bare", [handle] {
        const OneProcessor same;
        std::size_t size = 0;
        for (int i = 0; i < chainLength; ++i) size += bareGet(handle);
        return size;
    });
    add("get-awaited", [request] {
        const OneProcessor same;
        return get(request);
    });
    add("get-bare-once", [handle] {
        const OneProcessor same;
        return bareGet(handle);
    });
    return {{"GET through a stream / a bare reused handle", "get", "get-bare", 1.6, 1.2},
            {"GET that another thread waits for / a bare reused handle", "get-awaited", "get-bare-once"}};
}

}  // namespace quorin::bench
