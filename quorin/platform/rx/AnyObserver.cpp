#include "quorin/platform/rx/AnyObserver.hpp"

#include "quorin/platform/rx/Rollback.hpp"
#include "quorin/platform/rx/Subscription.hpp"

#include <new>
#include <utility>

namespace quorin::rx {

AnyObserver::AnyObserver(std::shared_ptr<Subscription> subscription) : subscription_(std::move(subscription)) {}

void AnyObserver::send(const AnyEvent& event) const {
    if (!trySend(event)) throw std::bad_alloc();
}

bool AnyObserver::trySend(const AnyEvent& event) const noexcept {
    const auto subscription = subscription_;  // the handler may drop this observer
    return !subscription || subscription->deliver(event);
}

bool AnyObserver::isDisposed() const { return !subscription_ || subscription_->isClosed(); }

Disposable AnyObserver::subscribe(const Source& source, Handler handler) {
    const auto subscription = std::make_shared<Subscription>(std::move(handler));
    const auto upstream = subscription->upstream();
    const Disposable handle([known = std::weak_ptr(subscription), upstream] {
        if (const auto running = known.lock()) running->close();
        upstream->dispose();
    });
    Rollback leaving([&handle] { handle.dispose(); });
    upstream->put(source(AnyObserver(subscription)));
    leaving.keep();
    return handle;
}

}  // namespace quorin::rx
