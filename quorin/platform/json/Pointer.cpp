#include "quorin/platform/json/Pointer.hpp"

#include <algorithm>

namespace quorin::json {

void appendStep(std::string& pointer, std::string_view name) {
    pointer += '/';
    for (;;) {
        const std::size_t run = std::min(name.find_first_of("~/"), name.size());
        pointer += name.substr(0, run);
        if (run == name.size()) return;
        pointer += name[run] == '~' ? "~0" : "~1";
        name.remove_prefix(run + 1);
    }
}

std::vector<std::string> stepsOf(std::string_view pointer) {
    std::vector<std::string> steps;
    for (std::size_t i = 0; i < pointer.size(); ++i) {
        const char c = pointer[i];
        if (c == '/')
            steps.emplace_back();
        else if (steps.empty())
            continue;
        else if (c == '~' && i + 1 < pointer.size())
            steps.back() += pointer[++i] == '1' ? '/' : '~';
        else
            steps.back() += c;
    }
    return steps;
}

}  // namespace quorin::json
