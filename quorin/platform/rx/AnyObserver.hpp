#pragma once

#include "quorin/platform/rx/AnyEvent.hpp"
#include "quorin/platform/rx/Disposable.hpp"

#include <functional>
#include <memory>

namespace quorin::rx {
class Subscription;
}

#pragma GCC visibility push(default)

namespace quorin::rx {

/// An observer without the type of its values; the code around it keeps to one type. It holds the subscription, which
/// holds nothing of what is upstream, so that streams own one another in one direction.
class AnyObserver {
public:
    using Handler = std::function<void(const AnyEvent&)>;
    using Source = std::function<Disposable(const AnyObserver&)>;

    /// An observer that reaches nobody.
    AnyObserver() = default;

    explicit AnyObserver(std::shared_ptr<Subscription> subscription);

    /// A `std::bad_alloc` where the memory of the handler ends.
    void send(const AnyEvent& event) const;

    /// The same for one who has others to tell first: false where the memory of the handler ends.
    bool trySend(const AnyEvent& event) const noexcept;

    /// True when nothing more reaches the subscriber: the stream ended or was disposed.
    bool isDisposed() const;

    /// Runs the source for the handler and yields what ends that early. Nothing stays begun where memory ends.
    static Disposable subscribe(const Source& source, Handler handler);

private:
    std::shared_ptr<Subscription> subscription_{};
};

}  // namespace quorin::rx

#pragma GCC visibility pop
