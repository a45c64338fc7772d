#pragma once

#include "quorin/platform/rx/AnyObserver.hpp"

#include <memory>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// Delivers each event to all who were subscribed when it was sent and are still there, all in one order. The events
/// wait in one queue, and one thread at a time works it off; a handler that sends again works it off itself, from where
/// the delivery around it stands, so nobody gets the second event before the first. A copy is the same broadcast, which
/// holds its subscribers.
class Broadcast {
public:
    /// Without replay: a new subscriber gets what is sent from then on.
    Broadcast();

    /// With replay of one: a new subscriber gets the last value sent, at first this one.
    explicit Broadcast(AnyEvent initial);

    /// Takes an event that is kept (`AnyEvent::kept`): it may wait in the queue, and be replayed, when the call is
    /// over. Delivers before it returns, except inside a handler while another thread delivers: then that thread goes
    /// on with this event. Outside any handler it waits for that thread first. Nothing is sent after a terminal event.
    ///
    /// A `std::bad_alloc` where memory ends: before anyone has the event, or in handlers, when all others have it.
    void send(AnyEvent event) const;

    /// Sends a terminal event, kept like any, and tells nobody where the memory of a handler ends.
    void end(const AnyEvent& event) const noexcept;

    /// Adds a subscriber, with a replay as one more event under the same rules. After the end it gets the last value
    /// and the end. Nobody is added where memory ends.
    Disposable subscribe(const AnyObserver& observer) const;

    /// The last value sent, whether delivered or not. Only with replay.
    std::shared_ptr<const void> last() const;

private:
    struct [[gnu::visibility("hidden")]] State;  // its functions stay inside the library
    std::shared_ptr<State> state_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
