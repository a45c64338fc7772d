#include "quorin/platform/rx/Sharing.hpp"

#include "quorin/platform/rx/Broadcast.hpp"
#include "quorin/platform/rx/LateDisposable.hpp"
#include "quorin/platform/rx/Rollback.hpp"

#include <cstddef>
#include <optional>
#include <utility>

namespace quorin::rx {
namespace {

/// Who is connected, and to what. Closed by the end of the stream or by the last member leaving, it takes no more.
class Membership {
public:
    /// Whether there is one more member now, for which `add` was called in the same breath.
    template <class Add>
    bool join(const Add& add) {
        const std::lock_guard lock(mutex_);
        if (!isOpen_) return false;
        add();
        ++members_;
        return true;
    }

    void leave() {
        {
            const std::lock_guard lock(mutex_);
            if (--members_ > 0) return;
            isOpen_ = false;
        }
        upstream.dispose();
    }

    void close() {
        const std::lock_guard lock(mutex_);
        isOpen_ = false;
    }

    LateDisposable upstream;

private:
    std::mutex mutex_;
    std::size_t members_ = 0;
    bool isOpen_ = true;
};

}  // namespace

/// Members hold the membership and not the broadcast, which holds them.
class Sharing::Connection {
public:
    const std::shared_ptr<Membership> membership = std::make_shared<Membership>();
    const Broadcast broadcast{};

    /// What ends the observer's part; nothing when the connection is closed.
    std::optional<Disposable> join(const AnyObserver& observer) {
        Disposable place;
        if (!membership->join([&] { place = broadcast.subscribe(observer); })) return std::nullopt;
        const auto leave = [place, membership = membership] {
            place.dispose();
            membership->leave();
        };
        Rollback leaving(leave);
        Disposable handle(leave);
        leaving.keep();
        return handle;
    }
};

struct Sharing::Entrance {
    std::shared_ptr<Connection> connection{};
    Disposable place{};
    bool isFirst = false;
};

Sharing::Sharing(std::function<Disposable(Feed)> connect, AnyEvent lost)
    : connect_(std::move(connect)), lost_(std::move(lost)) {}

Disposable Sharing::subscribe(const AnyObserver& observer) {
    const Entrance entrance = enter(observer);
    if (entrance.isFirst) {
        const auto connection = entrance.connection;
        Rollback leaving([&] {
            entrance.place.dispose();
            connection->membership->close();
            connection->broadcast.end(lost_);
        });
        connection->membership->upstream.put(connect_([connection](AnyEvent event) {
            if (event.isTerminal) connection->membership->close();
            connection->broadcast.send(std::move(event));
        }));
        leaving.keep();
    }
    return entrance.place;
}

Sharing::Entrance Sharing::enter(const AnyObserver& observer) {
    auto connection = std::make_shared<Connection>();
    const std::lock_guard lock(mutex_);
    if (current_) {
        if (const auto place = current_->join(observer)) return {current_, *place, false};
    }
    const auto place = connection->join(observer);
    std::swap(current_, connection);
    return {current_, *place, true};
}

}  // namespace quorin::rx
