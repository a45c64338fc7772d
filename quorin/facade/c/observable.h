#ifndef QUORIN_FACADE_C_OBSERVABLE_H
#define QUORIN_FACADE_C_OBSERVABLE_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// Where a stream delivers: values, then `error` or `completed`, one of the two. Null passes over a kind. A handle that
/// is handed in is lent: it ends with the call, and `quorin_copy` keeps its object.
///
/// They run on the thread that delivers: the library's own for loads and requests, which a slow function holds up; for
/// identity values the one that assigns. Those of one subscription never run on two threads at once, but one that
/// assigns the value it observes is called again before the assignment returns. A function must return: no exception
/// and no jump may leave it. It must not wait for another thread that assigns. The process ends where there is no
/// memory for what is to be delivered.
///
/// When the process exits, each load and request under way still calls `error` and `released` on the library's thread.
/// A host whose own run-time ends before that (Python, Java) disposes its subscriptions first and waits for `released`.
typedef struct quorin_handlers {
    void (*value)(void* user, quorin_handle value);  ///< QUORIN_NONE: an identity value was removed
    void (*error)(void* user, quorin_handle error);  ///< the end
    void (*completed)(void* user);                   ///< the end
    /// Called once, after all others, when `user` is not needed any more; also where subscribing fails. It may run on
    /// the thread that subscribes or disposes.
    void (*released)(void* user);
} quorin_handlers;

/// Starts what the stream stands for: a load, a request, the observation of a value. `subscription` may be null where
/// nobody wants to end it early; it is set before the first function is called, which may be before this returns.
quorin_status quorin_observable_subscribe(quorin_handle observable, const quorin_handlers* handlers, void* user,
                                          quorin_handle* subscription);

/// Ends the subscription: on the thread that delivers nothing more is called after this, on another one the call under
/// way is finished. A transfer is abandoned. A second time does nothing.
quorin_status quorin_subscription_dispose(quorin_handle subscription);

/// Subscribes and waits for the one result: QUORIN_OK and a value (QUORIN_NONE for a removed identity value), or
/// QUORIN_FAILED and an error; the other handle is QUORIN_NONE. QUORIN_REFUSED inside a handler, where it could wait
/// for itself. There is no way to give up: an identity value is waited for until somebody assigns it, and a server that
/// does not answer as long as a request may take.
quorin_status quorin_observable_wait(quorin_handle observable, quorin_handle* value, quorin_handle* error);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
