#pragma once

namespace quorin::support {

/// A TCP socket that takes connections on 127.0.0.1, and its port. Who holds it closes it.
struct Listener {
    int socket = -1;
    int port = 0;
};

/// A port nobody else has. Ends the program when there is none.
Listener listenOnFreePort();

/// A port of 127.0.0.1 on which nobody listens.
int closedPort();

}  // namespace quorin::support
