#include "quorin/facade/c/observable.h"

#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/IdentityValue.hpp"
#include "quorin/platform/brule/SwiftObservable.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include <atomic>
#include <new>

namespace {

namespace c = quorin::c;
using quorin::Object;
using quorin::SwiftObservable;

/// The functions of a host and what they are called with.
class Host {
public:
    Host(const quorin_handlers& handlers, void* user) : handlers_(handlers), user_(user) {}
    ~Host() {
        if (handlers_.released) handlers_.released(user_);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void value(const Object& object) const {
        const auto shown = c::shown(object);
        if (!shown)
            call(handlers_.value, QUORIN_NONE);
        else
            lend(handlers_.value, *shown);
    }
    void error(const quorin::rx::Error& error) const { lend(handlers_.error, Object(error)); }
    void completed() const {
        if (!isOver_ && handlers_.completed) handlers_.completed(user_);
    }

private:
    using Handler = void (*)(void* user, quorin_handle handle);

    void call(Handler handler, quorin_handle handle) const {
        if (!isOver_ && handler) handler(user_, handle);
    }

    /// Gives the object a number for the length of a call.
    void lend(Handler handler, const Object& object) const {
        quorin_handle handle = QUORIN_NONE;
        if (c::guarded([&] { return c::put(object, &handle); }) != QUORIN_OK) {
            call(handlers_.error, QUORIN_NONE);
            isOver_ = true;
            return;
        }
        call(handler, handle);
        c::handles().release(handle);
    }

    quorin_handlers handlers_;
    void* user_;
    mutable std::atomic<bool> isOver_ = false;  ///< for want of memory, which the stream does not know
};

quorin_status subscribe(const SwiftObservable& stream, const std::shared_ptr<const Host>& host,
                        quorin_handle* subscription) {
    const quorin::rx::Disposable started =
        stream.subscribe([host](const Object& object) { host->value(object); },
                         [host](const quorin::rx::Error& error) { host->error(error); }, [host] { host->completed(); });
    if (!subscription) return QUORIN_OK;
    const quorin_status status = c::guarded([&] { return c::put(Object(started), subscription); });
    if (status != QUORIN_OK) started.dispose();
    return status;
}

}  // namespace

quorin_status quorin_observable_subscribe(quorin_handle observable, const quorin_handlers* handlers, void* user,
                                          quorin_handle* subscription) {
    if (subscription) *subscription = QUORIN_NONE;
    if (!handlers) return QUORIN_INVALID_ARGUMENT;
    std::shared_ptr<const Host> host;
    try {
        host = std::make_shared<const Host>(*handlers, user);
    } catch (const std::bad_alloc&) {
        if (handlers->released) handlers->released(user);
        return QUORIN_NO_MEMORY;
    }
    return c::with<SwiftObservable>(
        observable, [&](const SwiftObservable& stream) { return subscribe(stream, host, subscription); });
}

quorin_status quorin_subscription_dispose(quorin_handle subscription) {
    return c::with<quorin::rx::Disposable>(subscription, [](const quorin::rx::Disposable& it) {
        it.dispose();
        return QUORIN_OK;
    });
}

quorin_status quorin_observable_wait(quorin_handle observable, quorin_handle* value, quorin_handle* error) {
    if (value) *value = QUORIN_NONE;
    if (error) *error = QUORIN_NONE;
    if (!value || !error) return QUORIN_INVALID_ARGUMENT;
    return c::with<SwiftObservable>(observable, [&](const SwiftObservable& stream) -> quorin_status {
        const auto result = quorin::rx::wait(stream.stream());
        if (result) {
            const auto shown = c::shown(*result);
            return shown ? c::put(*shown, value) : QUORIN_OK;
        }
        if (result.error().as<quorin::rx::NoValue>()) return QUORIN_ABSENT;
        const quorin_status status = c::put(Object(result.error()), error);
        return status == QUORIN_OK ? QUORIN_FAILED : status;
    });
}
