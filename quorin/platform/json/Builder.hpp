#pragma once

#include "quorin/platform/json/Value.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorin::json {

/// Makes a tree of values in one arena, from the first value to the last: a scalar, or a list or an object that is
/// begun, filled and ended. Inside an object each value follows its `name`; of two members of one name the last counts.
/// For one thread; what it made is for all.
class Builder {
public:
    /// Every walk over a tree is a recursion: a list or object that would stand below so many others becomes null.
    static constexpr std::uint16_t deepest = 1024;

    /// `expected` is about how many bytes the tree will take.
    explicit Builder(std::size_t expected = 0) : arena_(ArenaPointer::make(expected)) {}

    void null() { open_.emplace_back(); }
    void boolean(bool value);
    void integer(Integer value);
    void unsignedInteger(std::uint64_t value);
    void real(double value);  ///< one that is not finite becomes null
    void string(std::string_view value);
    void copy(const Node& value);  ///< with all that is below it

    /// A value whose contents stay where they stand: `keep` what holds them.
    void share(const Node& value);
    void keep(const Value& first, const Value& second) { arena_->keep(first.arena_, second.arena_); }

    void name(std::string_view name) { string(name); }
    std::size_t begin();  ///< yields what the matching `end…` is told
    void endList(std::size_t begun);
    void endObject(std::size_t begun);

    /// The one value that was made. The builder is spent then.
    Value finish();

private:
    Node& push(Kind kind);
    void close(Kind kind, std::size_t begun, const Node* items, std::size_t size);

    ArenaPointer arena_;
    std::vector<Node> open_;  ///< values whose list or object has not ended yet
    std::size_t depth_ = 0;   ///< lists and objects that have not ended yet
};

}  // namespace quorin::json
