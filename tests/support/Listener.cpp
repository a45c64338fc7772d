#include "tests/support/Listener.hpp"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace quorin::support {

Listener listenOnFreePort() {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(socket, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(socket, 128) != 0
        || getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        std::perror("no socket to listen on");
        std::abort();
    }
    return {socket, ntohs(address.sin_port)};
}

int closedPort() {
    const Listener listener = listenOnFreePort();
    close(listener.socket);
    return listener.port;
}

}  // namespace quorin::support
