#include "quorin/platform/json/Pointer.hpp"

namespace quorin::json {

void appendStep(std::string& pointer, std::string_view name) {
    pointer += '/';
    for (const char c : name) {
        if (c == '~')
            pointer += "~0";
        else if (c == '/')
            pointer += "~1";
        else
            pointer += c;
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
