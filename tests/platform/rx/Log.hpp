#pragma once

#include "quorin/platform/rx/Event.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::rx {

/// What arrived, in the order of arrival: "a1" is the value 1 at a, "a." its completion, "a!" its error.
using Log = std::vector<std::string>;

inline std::string entry(const std::string& name, const Event<int>& event) {
    if (event.value()) return name + std::to_string(*event.value());
    return name + (event.error() ? "!" : ".");
}

inline std::function<void(const Event<int>&)> into(Log& log, std::string name) {
    return [&log, name = std::move(name)](const Event<int>& event) { log.push_back(entry(name, event)); };
}

/// An error for tests.
struct Broken {
    static constexpr std::string_view errorName = "test.Broken";
    int code = 0;
    std::string description() const { return "broken " + std::to_string(code); }
};

}  // namespace quorin::rx
