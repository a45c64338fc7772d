#pragma once

#include "quorin/facade/c/base.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

/// What a host in C++ would write around the C interface.
namespace quorin::host {

/// The status of a function that yields a text, and the text.
template <class... Parameters, class... Arguments>
std::pair<quorin_status, std::string> textWith(quorin_status (*function)(Parameters...), Arguments... arguments) {
    std::uint64_t size = 0;
    quorin_status status = function(arguments..., nullptr, 0, &size);
    if (status != QUORIN_OK) return {status, {}};
    std::string room(size + 1, ' ');
    status = function(arguments..., room.data(), room.size(), nullptr);
    room.resize(size);
    return {status, room};
}

template <class... Parameters, class... Arguments>
std::string text(quorin_status (*function)(Parameters...), Arguments... arguments) {
    const auto [status, text] = textWith(function, arguments...);
    EXPECT_EQ(status, QUORIN_OK) << quorin_status_name(status);
    return text;
}

}  // namespace quorin::host
