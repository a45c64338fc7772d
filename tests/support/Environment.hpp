#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

namespace quorin::support {

/// An environment variable that has another value for one test; absent: it is not set.
class Environment {
public:
    Environment(const char* name, std::optional<std::string> value) : name_(name) {
        if (const char* before = getenv(name)) before_ = before;
        assign(value);
    }
    ~Environment() { assign(before_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    void assign(const std::optional<std::string>& value) {
        if (value) {
            setenv(name_, value->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }

    const char* name_;
    std::optional<std::string> before_{};
};

}  // namespace quorin::support
