#pragma once

#include <string>

namespace quorin::skell {

/// A host name that the system's resolver does not answer for as long as it is held; then it is unknown. One at a time.
class HeldName {
public:
    HeldName();
    ~HeldName() { release(); }
    HeldName(const HeldName&) = delete;
    HeldName& operator=(const HeldName&) = delete;

    std::string text() const;

    /// Blocks until somebody has asked for the name.
    void waitUntilAsked() const;

    void release();
};

}  // namespace quorin::skell
