#pragma once

#include "quorin/model/Configuration.hpp"

#include <memory>
#include <string>

/// What the library is measured against.
namespace quorin::bench {

/// The parse alone, by the parser that the library reads with, which is reused. Yields the number of root members.
std::size_t parseWithDOM(const std::string& text);

/// The same typed load the way an app would write it by hand, on a general JSON tree.
Configuration loadByHand(const std::string& text, const std::string& brand);

/// The archive of a configuration as a general JSON tree.
class GeneralTree {
public:
    static GeneralTree of(const DocumentMap& archive);
    bool operator==(const GeneralTree& other) const;

private:
    std::shared_ptr<const void> tree_{};
};

}  // namespace quorin::bench
