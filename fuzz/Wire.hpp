#pragma once

#include "quorin/platform/skell/Transfer.hpp"

#include "fuzz/Fuzz.hpp"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace quorin::fuzz {

/// What came of a message that went to a server of any words.
struct Exchanged {
    skell::Transfer::Outcome outcome;
    std::string sent{};  ///< byte for byte
};

/// Sends messages through the HTTP library to a socket of this process: whatever a URL says, no name is looked up, and
/// nothing leaves the machine.
class Wire {
public:
    Wire() : name_("quorin-fuzz-" + std::to_string(getpid())), listener_(listening(name_)) {
        require(skell::openCurl() != nullptr, "the HTTP library can be opened");
        multi_ = skell::curl().multi_init();
    }
    Wire(const Wire&) = delete;
    Wire& operator=(const Wire&) = delete;

    /// `reply` is all that the server says, whatever it is asked. For http URLs.
    Exchanged exchange(const skell::Hop& hop, const skell::Transport& transport, std::string_view reply) {
        CURL* const easy = skell::curl().easy_init();
        skell::Transfer transfer(easy, hop, transport);
        CURLcode code = transfer.prepare(std::chrono::seconds(5));
        int server = -1;
        if (code == CURLE_OK) code = perform(easy, reply, server);
        Exchanged exchanged{.outcome = transfer.outcome(code)};
        skell::curl().easy_cleanup(easy);
        if (server < 0) return exchanged;
        exchanged.sent = heard(server);
        close(server);
        return exchanged;
    }

private:
    /// Its name is in no file system.
    static int listening(const std::string& name) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(name.begin(), name.end(), address.sun_path + 1);
        const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        const bool isBound = socket >= 0 && bind(socket, reinterpret_cast<const sockaddr*>(&address), size) == 0;
        require(isBound && listen(socket, 8) == 0, "there are sockets");
        return socket;
    }

    static void say(int server, std::string_view reply) {
        const int room = 1 << 18;
        setsockopt(server, SOL_SOCKET, SO_SNDBUF, &room, sizeof room);
        const ssize_t count = send(server, reply.data(), reply.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
        require(count == static_cast<ssize_t>(reply.size()), "a reply fits into the socket");
        shutdown(server, SHUT_WR);
    }

    static std::string heard(int server) {
        std::string all;
        std::array<char, 65536> room;
        for (ssize_t count = 0; (count = recv(server, room.data(), room.size(), MSG_DONTWAIT)) > 0;)
            all.append(room.data(), static_cast<std::size_t>(count));
        return all;
    }

    CURLcode perform(CURL* easy, std::string_view reply, int& server) {
        skell::curl().easy_setopt(easy, CURLOPT_ABSTRACT_UNIX_SOCKET, name_.c_str());
        skell::curl().easy_setopt(easy, CURLOPT_FORBID_REUSE, 1L);
        require(skell::curl().multi_add_handle(multi_, easy) == CURLM_OK, "the HTTP library takes a transfer");
        for (int active = 1; active > 0;) {
            require(skell::curl().multi_perform(multi_, &active) == CURLM_OK, "the HTTP library goes on");
            if (server < 0 && (server = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0) say(server, reply);
            if (active > 0) skell::curl().multi_poll(multi_, nullptr, 0, 1000, nullptr);
        }
        CURLcode result = CURLE_FAILED_INIT;
        int left = 0;
        while (const CURLMsg* const message = skell::curl().multi_info_read(multi_, &left))
            result = message->data.result;
        skell::curl().multi_remove_handle(multi_, easy);
        return result;
    }

    const std::string name_;
    const int listener_;
    CURLM* multi_ = nullptr;
};

/// One for all runs, that has shown that it carries a message.
inline Wire& wire() {
    static Wire& wire = []() -> Wire& {
        auto& made = *new Wire;
        const auto probe = made.exchange({.url = "http://h.example/"}, {}, "HTTP/1.1 204 None\r\n\r\n");
        const auto* response = std::get_if<skell::Response>(&probe.outcome);
        require(response && response->status() == 204 && probe.sent.starts_with("GET / "), "a message gets through");
        return made;
    }();
    return wire;
}

}  // namespace quorin::fuzz
