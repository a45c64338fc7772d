#include "tests/support/Command.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace quorin::support {

std::string outputOf(const std::string& command) {
    std::string output;
    std::array<char, 64 * 1024> piece{};
    FILE* const pipe = popen(command.c_str(), "re");
    while (pipe) {
        const std::size_t count = fread(piece.data(), 1, piece.size(), pipe);
        if (count == 0) break;
        output.append(piece.data(), count);
    }
    if (!pipe || pclose(pipe) != 0) {
        std::fprintf(stderr, "failed: %s\n", command.c_str());
        std::abort();
    }
    return output;
}

}  // namespace quorin::support
