#include "quorin/platform/rx/Broadcast.hpp"

#include "quorin/platform/rx/HandlerScope.hpp"
#include "quorin/platform/rx/Memory.hpp"
#include "quorin/platform/rx/Rollback.hpp"

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <new>
#include <thread>
#include <utility>
#include <vector>

namespace quorin::rx {
namespace {

/// Subscribers are numbered in the order of their coming, and an event goes to a range of numbers.
using Number = std::uint64_t;

/// An event and those who are still to get it: from `next` to before `end`.
struct Delivery {
    AnyEvent event{};
    Number next = 0;
    Number end = 0;
};

struct Target {
    Number number = 0;
    AnyObserver observer{};
};

/// As many as are seldom exceeded: one more for each handler, one inside the other, that sends again.
constexpr std::size_t roomForDeliveries = 4;

struct Call {
    AnyEvent event{};
    AnyObserver target{};
};

}  // namespace

/// Everything that is released here is released without the lock, for values and handlers may call back in.
struct Broadcast::State : std::enable_shared_from_this<State> {
    using Lock = std::unique_lock<std::mutex>;

    std::mutex mutex{};
    std::condition_variable idle{};
    std::thread::id deliverer{};  ///< that of no thread while the broadcast is idle
    std::vector<Delivery> queue{};
    std::vector<Target> targets{};  ///< in the order of their numbers
    Number nextNumber = 0;
    AnyEvent last{};  ///< empty without replay
    AnyEvent end{};   ///< empty before the end

    bool send(AnyEvent event);  ///< false where the memory of a handler ended
    Disposable subscribe(const AnyObserver& observer);
    void remove(Number number);

    void replay(const AnyEvent& event, Number number, const AnyObserver& observer, Lock& lock);
    void awaitTurn(Lock& lock);
    bool workOff(Lock& lock);
    bool drain(Lock& lock);
    Call nextCall();
    std::vector<Target>::iterator targetFrom(Number number);
};

bool Broadcast::State::send(AnyEvent event) {
    Lock lock(mutex);
    awaitTurn(lock);
    if (end.content) return true;
    if (!targets.empty()) queue.push_back({event, 0, nextNumber});
    if (event.isTerminal)
        end = std::move(event);
    else if (last.content)
        std::swap(last, event);
    return workOff(lock);
}

Disposable Broadcast::State::subscribe(const AnyObserver& observer) {
    AnyEvent first, second;
    Lock lock(mutex);
    if (last.content) awaitTurn(lock);
    first = last;
    second = end;
    if (second.content) {
        lock.unlock();
        if (first.content) observer.send(first);
        observer.send(second);
        return Disposable();
    }
    const Number number = nextNumber;
    const Disposable place([known = weak_from_this(), number] {
        if (const auto state = known.lock()) state->remove(number);
    });
    targets.push_back({number, observer});
    ++nextNumber;
    Rollback leaving([&] {
        if (lock.owns_lock()) lock.unlock();
        remove(number);
    });
    if (first.content) replay(first, number, observer, lock);
    leaving.keep();
    return place;
}

/// At once inside a delivery of this thread, for which nobody can wait there, and else when its turn comes.
void Broadcast::State::replay(const AnyEvent& event, Number number, const AnyObserver& observer, Lock& lock) {
    if (deliverer == std::this_thread::get_id()) {
        lock.unlock();
        return observer.send(event);
    }
    queue.push_back({event, number, number + 1});
    if (!workOff(lock)) throw std::bad_alloc();
}

void Broadcast::State::remove(Number number) {
    AnyObserver removed;
    const Lock lock(mutex);
    const auto target = targetFrom(number);
    if (target == targets.end() || target->number != number) return;
    std::swap(removed, target->observer);
    targets.erase(target);
}

std::vector<Target>::iterator Broadcast::State::targetFrom(Number number) {
    return std::lower_bound(targets.begin(), targets.end(), number,
                            [](const Target& target, Number first) { return target.number < first; });
}

/// A thread inside a handler never waits: the other thread might be waiting for it.
void Broadcast::State::awaitTurn(Lock& lock) {
    if (HandlerScope::isInside()) return;
    idle.wait(lock, [this] { return deliverer == std::thread::id(); });
}

/// Leaves the queue to the thread that is delivering, if that is another one. A handler whose memory ends keeps nobody
/// else from the event; false is yielded then.
bool Broadcast::State::workOff(Lock& lock) {
    const auto self = std::this_thread::get_id();
    const bool isIdle = deliverer == std::thread::id();
    if (!isIdle && deliverer != self) return true;
    deliverer = self;
    const bool areAllTold = drain(lock);
    if (isIdle) deliverer = std::thread::id();
    lock.unlock();
    if (isIdle) idle.notify_all();
    return areAllTold;
}

/// False where the memory of a handler ended.
bool Broadcast::State::drain(Lock& lock) {
    const HandlerScope scope;
    bool areAllTold = true;
    while (!queue.empty()) {
        Call call = nextCall();
        lock.unlock();
        areAllTold = call.target.trySend(call.event) && areAllTold;
        call = {};
        lock.lock();
    }
    return areAllTold;
}

/// For the event at the head of the queue; when nobody is left to get it, it leaves the queue in a call to nobody.
Call Broadcast::State::nextCall() {
    Delivery& running = queue.front();
    const auto target = targetFrom(running.next);
    if (target != targets.end() && target->number < running.end) {
        running.next = target->number + 1;
        return {running.event, target->observer};
    }
    Call toNobody{std::move(running.event)};
    queue.erase(queue.begin());
    return toNobody;
}

Broadcast::Broadcast() : state_(std::make_shared<State>()) { state_->queue.reserve(roomForDeliveries); }

Broadcast::Broadcast(AnyEvent initial) : Broadcast() { state_->last = std::move(initial); }

void Broadcast::send(AnyEvent event) const {
    const auto state = state_;  // a handler may drop this broadcast
    if (!state->send(std::move(event))) throw std::bad_alloc();
}

void Broadcast::end(const AnyEvent& event) const noexcept {
    const auto state = state_;
    hasMemoryFor([&] { state->send(event); });
}

Disposable Broadcast::subscribe(const AnyObserver& observer) const {
    const auto state = state_;
    return state->subscribe(observer);
}

std::shared_ptr<const void> Broadcast::last() const {
    const State::Lock lock(state_->mutex);
    return state_->last.content;
}

}  // namespace quorin::rx
