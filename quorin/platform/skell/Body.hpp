#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorin::skell {

/// The bytes of a response as they grow, up to a limit.
class Body {
public:
    explicit Body(std::size_t limit) : limit_(limit) {}

    /// Makes room at once for a body whose size was announced, so that it is never moved while it grows.
    void expect(std::size_t size);

    /// False, and nothing is added, when the body would be larger than the limit.
    bool append(std::string_view bytes);

    std::string take() { return std::move(bytes_); }

private:
    std::size_t limit_;
    std::string bytes_{};
};

}  // namespace quorin::skell
