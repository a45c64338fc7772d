#include "bench/Measured.hpp"

#include <cstdio>

namespace quorin::bench {

void print(const std::vector<Measured>& rows) {
    const char* separator = "[";
    for (const Measured& row : rows) {
        std::printf("%s\n  {\"row\": \"%s\", \"ours\": %.4f, \"theirs\": %.4f, \"floor\": %g, \"stretch\": %g}",
                    separator, row.title.c_str(), row.ours, row.theirs, row.floor, row.stretch);
        separator = ",";
    }
    std::puts(rows.empty() ? "[]" : "\n]");
}

}  // namespace quorin::bench
