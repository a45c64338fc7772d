#include "Program.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>

namespace {

/// A file opened later must not take the place of a standard stream that the caller closed.
void fillClosedStreams() {
    int file = 0;
    do {
        file = open("/dev/null", O_RDONLY);
    } while (file >= 0 && file <= STDERR_FILENO);
    if (file >= 0) close(file);
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    fillClosedStreams();
    try {
        return quorin::tool::runProgram(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quorin: %s\n", error.what());
        return 1;
    }
}
