#include "quorin/platform/json/Arena.hpp"

#include <algorithm>
#include <new>

namespace quorin::json {

struct alignas(Node) Arena::Block {
    Block* older;
};

namespace {

constexpr std::size_t smallestBlock = 256;
constexpr std::size_t largestStep = std::size_t{1} << 20;

}  // namespace

Arena::~Arena() {
    while (blocks_) ::operator delete(std::exchange(blocks_, blocks_->older));
}

// A loop, because arenas that keep each other may form a long chain.
void Arena::release(Arena* arena) {
    while (arena) {
        Arena* following = arena->nextReleased_;
        for (ArenaPointer& kept : arena->kept_) {
            Arena* const last = std::exchange(kept.arena_, nullptr);
            if (!last || last->owners_.fetch_sub(1, std::memory_order_acq_rel) != 1) continue;
            last->nextReleased_ = following;
            following = last;
        }
        delete arena;
        arena = following;
    }
}

void Arena::addBlock(std::size_t atLeast) {
    const std::size_t room = std::max({atLeast, next_, smallestBlock}) / sizeof(Node) * sizeof(Node) + sizeof(Node);
    auto* const memory = static_cast<char*>(::operator new(sizeof(Block) + room));
    blocks_ = new (memory) Block{blocks_};
    front_ = memory + sizeof(Block);
    back_ = front_ + room;
    next_ = std::min(room * 2, std::max(largestStep, next_));
}

}  // namespace quorin::json
