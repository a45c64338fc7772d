#include "quorin/facade/c/observable.h"

#include "quorin/facade/c/Call.hpp"
#include "quorin/platform/brule/SwiftObservable.hpp"
#include "quorin/platform/rx/HandlerScope.hpp"
#include "quorin/platform/rx/LateDisposable.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include <memory>
#include <optional>
#include <string>

namespace {

namespace c = quorin::c;
using quorin::Object;
using quorin::SwiftObservable;
using quorin::rx::Disposable;
using quorin::rx::Error;
using quorin::rx::HandlerScope;
using quorin::rx::LateDisposable;

/// What a host is shown of an object that a stream delivers: a text in the place of an identity value, nothing in the
/// place of a removed one, any other object as it is.
std::optional<Object> shown(const Object& object) {
    const auto identity = object.as<std::optional<std::string>>();
    if (!identity) return object;
    return *identity ? std::optional<Object>(**identity) : std::nullopt;
}

/// The functions of a host and what they are called with.
class Host {
public:
    Host(const quorin_handlers& handlers, void* user) : handlers_(handlers), user_(user) {}
    ~Host() {
        if (handlers_.released) handlers_.released(user_);
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void value(const Object& object) const { lend(handlers_.value, shown(object)); }
    void error(const Error& error) const { lend(handlers_.error, Object(error)); }
    void completed() const {
        if (handlers_.completed) handlers_.completed(user_);
    }

private:
    using Handler = void (*)(void* user, quorin_handle handle);

    /// Gives the object, if there is one, a number for the length of a call.
    void lend(Handler handler, const std::optional<Object>& object) const {
        if (!handler) return;
        const quorin_handle handle = object ? c::handles().add(*object) : quorin_handle{QUORIN_NONE};
        handler(user_, handle);
        c::handles().release(handle);
    }

    quorin_handlers handlers_;
    void* user_;
};

/// Takes back what a subscription has begun, where there is no memory for the rest of it.
class Unstarted {
public:
    Unstarted(LateDisposable& started, quorin_handle* subscription) : started_(&started), subscription_(subscription) {}
    ~Unstarted() {
        if (!started_) return;
        started_->dispose();
        if (!subscription_) return;
        c::handles().release(*subscription_);
        *subscription_ = QUORIN_NONE;
    }
    Unstarted(const Unstarted&) = delete;
    Unstarted& operator=(const Unstarted&) = delete;

    void forget() { started_ = nullptr; }

private:
    LateDisposable* started_;
    quorin_handle* subscription_;
};

/// The handle stands before the stream is started, so that nothing has begun where there is no memory for it, and that
/// what is delivered at once finds it.
void subscribe(const SwiftObservable& stream, const std::shared_ptr<const Host>& host, quorin_handle* subscription) {
    const auto started = std::make_shared<LateDisposable>();
    if (subscription) c::put(Object(Disposable([started] { started->dispose(); })), subscription);
    Unstarted unstarted(*started, subscription);
    started->put(stream.subscribe([host](const Object& object) { host->value(object); },
                                  [host](const Error& error) { host->error(error); }, [host] { host->completed(); }));
    unstarted.forget();
}

}  // namespace

quorin_status quorin_observable_subscribe(quorin_handle observable, const quorin_handlers* handlers, void* user,
                                          quorin_handle* subscription) {
    if (subscription) *subscription = QUORIN_NONE;
    if (!handlers) return QUORIN_INVALID_ARGUMENT;
    std::shared_ptr<const Host> host;
    if (c::guarded([&] { return host = std::make_shared<const Host>(*handlers, user), QUORIN_OK; }) != QUORIN_OK) {
        if (handlers->released) handlers->released(user);
        return QUORIN_NO_MEMORY;
    }
    return c::with<SwiftObservable>(observable, [&](const SwiftObservable& stream) {
        subscribe(stream, host, subscription);
        return QUORIN_OK;
    });
}

quorin_status quorin_subscription_dispose(quorin_handle subscription) {
    return c::with<Disposable>(subscription, [](const Disposable& it) {
        it.dispose();
        return QUORIN_OK;
    });
}

quorin_status quorin_observable_wait(quorin_handle observable, quorin_handle* value, quorin_handle* error) {
    if (value) *value = QUORIN_NONE;
    if (error) *error = QUORIN_NONE;
    if (!value || !error) return QUORIN_INVALID_ARGUMENT;
    return c::with<SwiftObservable>(observable, [&](const SwiftObservable& stream) -> quorin_status {
        if (HandlerScope::isInside()) return QUORIN_REFUSED;
        const auto result = quorin::rx::wait(stream.stream());
        if (!result) return c::failed(result.error(), error);
        const auto object = shown(*result);
        return object ? c::put(*object, value) : QUORIN_OK;
    });
}
