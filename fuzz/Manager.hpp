#pragma once

#include "quorin/core/Instance.hpp"

#include <memory>

namespace quorin::fuzz {

/// A machine that is the same at every run, with a store and cookies that nobody else has.
inline Platform steadyPlatform() {
    Platform platform{.store = std::make_shared<MorrStandard>(morr::Options{}),
                      .bundle = {"Sample", "2.4"},
                      .device = {"iPhone9,1", "iOS", "10.3.1"},
                      .locale = [] { return std::string("en_US"); },
                      .uuid = [] { return std::string("6F9619FF-8B86-D011-B42D-00CF4FC964FF"); },
                      .clock = [] { return std::chrono::system_clock::time_point(); }};
    platform.transport.proxy = "";
    platform.transport.cookies = std::make_shared<foundation::HTTPCookieStorage>();
    return platform;
}

}  // namespace quorin::fuzz
