#include "quorin/platform/rx/AnyObserver.hpp"

#include "quorin/platform/rx/Subscription.hpp"

#include <utility>

namespace quorin::rx {

AnyObserver::AnyObserver(std::shared_ptr<Subscription> subscription) : subscription_(std::move(subscription)) {}

void AnyObserver::send(const void* event, bool isTerminal) const {
    const auto subscription = subscription_;  // the handler may drop this observer
    if (subscription) subscription->deliver(event, isTerminal);
}

bool AnyObserver::isDisposed() const { return !subscription_ || subscription_->isClosed(); }

Disposable AnyObserver::subscribe(const Source& source, Handler handler) {
    const auto subscription = std::make_shared<Subscription>(std::move(handler));
    const Disposable upstream = source(AnyObserver(subscription));
    subscription->setUpstream(upstream);
    return Disposable([known = std::weak_ptr(subscription), upstream] {
        if (const auto running = known.lock()) running->close();
        upstream.dispose();
    });
}

}  // namespace quorin::rx
