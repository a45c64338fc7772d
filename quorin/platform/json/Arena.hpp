#pragma once

#include "quorin/platform/json/Node.hpp"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::json {

class Arena;

/// A share in an arena, or in none.
class ArenaPointer {
public:
    ArenaPointer() = default;
    static ArenaPointer make(std::size_t expected);

    ArenaPointer(const ArenaPointer& other);
    ArenaPointer(ArenaPointer&& other) noexcept : arena_(std::exchange(other.arena_, nullptr)) {}
    ArenaPointer& operator=(ArenaPointer other) noexcept {
        std::swap(arena_, other.arena_);
        return *this;
    }
    ~ArenaPointer();

    Arena* operator->() const { return arena_; }
    Arena& operator*() const { return *arena_; }
    explicit operator bool() const { return arena_ != nullptr; }

private:
    friend class Arena;
    explicit ArenaPointer(Arena* arena) : arena_(arena) {}

    Arena* arena_ = nullptr;
};

/// The memory of one tree of values: blocks that are given out from front to back and freed together, when the last
/// `ArenaPointer` goes. One builder fills it; afterwards it never changes, so any thread may read.
class Arena {
public:
    /// `expected` bytes fit into its first block.
    explicit Arena(std::size_t expected) : next_(expected) {}
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Room for `count` nodes and behind them `bytes` more, aligned for both.
    Node* nodes(std::size_t count, std::size_t bytes = 0) {
        const std::size_t whole = count * sizeof(Node) + (bytes + sizeof(Node) - 1) / sizeof(Node) * sizeof(Node);
        if (static_cast<std::size_t>(back_ - front_) < whole) addBlock(whole);
        back_ -= whole;
        return reinterpret_cast<Node*>(back_);
    }

    /// A copy of `text`.
    const char* text(std::string_view text) {
        if (static_cast<std::size_t>(back_ - front_) < text.size()) addBlock(text.size());
        char* const place = front_;
        if (!text.empty()) std::memcpy(place, text.data(), text.size());
        front_ += text.size();
        return place;
    }

    /// Keeps two other arenas, in which some of the nodes' contents stand, as long as this one.
    void keep(ArenaPointer first, ArenaPointer second) { kept_ = {std::move(first), std::move(second)}; }

private:
    friend class ArenaPointer;
    struct Block;

    ~Arena();
    void addBlock(std::size_t atLeast);
    static void release(Arena* arena);

    std::atomic<std::size_t> owners_{1};
    Block* blocks_ = nullptr;
    char* front_ = nullptr;  ///< strings grow from the front of the block,
    char* back_ = nullptr;   ///< nodes from its back, so that neither pays for the alignment of the other
    std::size_t next_;
    std::array<ArenaPointer, 2> kept_;
    Arena* nextReleased_ = nullptr;
};

inline ArenaPointer ArenaPointer::make(std::size_t expected) { return ArenaPointer(new Arena(expected)); }

inline ArenaPointer::ArenaPointer(const ArenaPointer& other) : arena_(other.arena_) {
    if (arena_) arena_->owners_.fetch_add(1, std::memory_order_relaxed);
}

inline ArenaPointer::~ArenaPointer() {
    if (arena_ && arena_->owners_.fetch_sub(1, std::memory_order_acq_rel) == 1) Arena::release(arena_);
}

}  // namespace quorin::json

#pragma GCC visibility pop
