#pragma once

#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Sharing.hpp"

#include <memory>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// One subscription upstream for all subscribers at a time: the first connects, the last to leave disconnects. Nothing
/// is replayed: who comes later gets what comes later. After the end the next subscriber connects anew. Any thread may
/// come and leave.
template <class T>
Observable<T> share(Observable<T> stream) {
    const auto connect = [stream = std::move(stream)](Sharing::Feed feed) {
        return stream.subscribeUntyped(
            [feed = std::move(feed)](const AnyEvent& event) { feed(event.template kept<T>()); });
    };
    const auto sharing = std::make_shared<Sharing>(connect, AnyEvent::of(Event<T>::failed(Error::noMemory())));
    return Observable<T>([sharing](const Observer<T>& observer) { return sharing->subscribe(observer.untyped()); });
}

}  // namespace quorin::rx

#pragma GCC visibility pop
