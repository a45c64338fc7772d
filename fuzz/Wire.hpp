#pragma once

#include "quorin/platform/skell/Transfer.hpp"

#include "fuzz/Fuzz.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <utility>

namespace quorin::fuzz {

/// What came of a message that went to a server of any words.
struct Exchanged {
    skell::Transfer::Outcome outcome;
    std::string sent{};  ///< byte for byte
};

/// Sends messages through the HTTP library over a pair of sockets. No name is looked up and nothing leaves the process.
class Wire {
public:
    Wire() : multi_(skell::curl().multi_init()), anywhere_(skell::curl().slist_append(nullptr, "::127.0.0.1:80")) {
        require(multi_ && anywhere_, "the HTTP library works");
    }

    /// `reply` is all that the server says, whatever it is asked. For http URLs.
    Exchanged exchange(const skell::Hop& hop, const skell::Transport& transport, std::string_view reply) {
        std::array<int, 2> ends{};
        require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0, "there are sockets");
        say(ends[1], reply);
        client_ = ends[0];
        CURL* const easy = skell::curl().easy_init();
        skell::Transfer transfer(easy, hop, transport);
        CURLcode code = transfer.prepare(std::chrono::seconds(5));
        if (code == CURLE_OK) code = perform(easy);
        Exchanged exchanged{.outcome = transfer.outcome(code)};
        skell::curl().easy_cleanup(easy);
        if (client_ >= 0) close(client_);
        exchanged.sent = heard(ends[1]);
        close(ends[1]);
        return exchanged;
    }

private:
    /// The library owns the socket from here on.
    static curl_socket_t openSocket(void* self, curlsocktype, curl_sockaddr*) {
        return std::exchange(static_cast<Wire*>(self)->client_, CURL_SOCKET_BAD);
    }
    static int isConnected(void*, curl_socket_t, curlsocktype) { return CURL_SOCKOPT_ALREADY_CONNECTED; }

    static void say(int end, std::string_view reply) {
        const int room = 1 << 18;
        setsockopt(end, SOL_SOCKET, SO_SNDBUF, &room, sizeof room);
        const ssize_t count = send(end, reply.data(), reply.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        require(count == static_cast<ssize_t>(reply.size()), "a reply fits into the socket");
        shutdown(end, SHUT_WR);
    }

    static std::string heard(int end) {
        std::string all;
        std::array<char, 65536> room;
        for (ssize_t count = 0; (count = recv(end, room.data(), room.size(), MSG_DONTWAIT)) > 0;)
            all.append(room.data(), static_cast<std::size_t>(count));
        return all;
    }

    CURLcode perform(CURL* easy) {
        skell::curl().easy_setopt(easy, CURLOPT_CONNECT_TO, anywhere_);
        skell::curl().easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, &Wire::openSocket);
        skell::curl().easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
        skell::curl().easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, &Wire::isConnected);
        skell::curl().easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
        require(skell::curl().multi_add_handle(multi_, easy) == CURLM_OK, "the HTTP library takes a transfer");
        CURLcode result = CURLE_FAILED_INIT;
        for (int active = 1; active > 0;) {
            if (skell::curl().multi_perform(multi_, &active) != CURLM_OK) break;
            if (active > 0) skell::curl().multi_poll(multi_, nullptr, 0, 1000, nullptr);
        }
        int left = 0;
        while (const CURLMsg* const message = skell::curl().multi_info_read(multi_, &left))
            result = message->data.result;
        skell::curl().multi_remove_handle(multi_, easy);
        return result;
    }

    CURLM* multi_;
    curl_slist* anywhere_;
    int client_ = -1;
};

/// One for all runs.
inline Wire& wire() {
    static Wire& wire = *new Wire;
    return wire;
}

}  // namespace quorin::fuzz
