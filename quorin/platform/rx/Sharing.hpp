#pragma once

#include "quorin/platform/rx/AnyObserver.hpp"

#include <functional>
#include <memory>
#include <mutex>

#pragma GCC visibility push(default)

namespace quorin::rx {

/// The subscribers of a shared stream and their one subscription upstream, the connection, while there are any.
class Sharing {
public:
    /// Where the upstream's events go.
    using Feed = std::function<void(AnyEvent)>;

    /// `connect` subscribes the feed upstream. Where its memory ends, those who have come meanwhile get `lost`, which
    /// can be kept.
    Sharing(std::function<Disposable(Feed)> connect, AnyEvent lost);

    /// The first subscriber connects; the handle of the last one to leave disconnects.
    Disposable subscribe(const AnyObserver& observer);

private:
    class Connection;
    struct Entrance;

    Entrance enter(const AnyObserver& observer);

    const std::function<Disposable(Feed)> connect_;
    const AnyEvent lost_;
    std::mutex mutex_;
    std::shared_ptr<Connection> current_;
};

}  // namespace quorin::rx

#pragma GCC visibility pop
