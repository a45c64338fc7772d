#pragma once

#include "quorin/context/Platform.hpp"
#include "quorin/context/Snapshot.hpp"

#include <string>

#pragma GCC visibility push(default)

namespace quorin {

namespace ConfigurationManagerUtils {

/// The offset of local time from UTC now, as the time-zone header carries it: "-0500", "+0100", "+0000". Any thread,
/// but none may change the environment meanwhile.
std::string generateZ(const Platform& platform = platform::current());

}  // namespace ConfigurationManagerUtils

/// The time-zone value of a manager: made at its first read and kept until it is set. Any thread.
class UserZ {
public:
    std::string value(const Platform& platform);
    void set(std::string value);

private:
    Snapshot<std::string> cached_;
};

}  // namespace quorin

#pragma GCC visibility pop
