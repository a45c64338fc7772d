#ifndef QUORIN_FACADE_C_OBSERVABLE_H
#define QUORIN_FACADE_C_OBSERVABLE_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// Where a stream delivers; null passes over a kind. A handle that is handed in is lent: it ends with the call, and
/// `quorin_copy` keeps its object. Of one subscription never two run at once. They run on the thread that delivers (for
/// loads and requests the library's, which a slow function holds up) or inside `quorin_observable_subscribe`.
typedef struct quorin_handlers {
    void (*value)(void* user, quorin_handle value);  ///< QUORIN_NONE: an identity value was removed
    void (*error)(void* user, quorin_handle error);  ///< the end; QUORIN_NONE: there was no memory for a value
    void (*completed)(void* user);                   ///< the end
    /// Called once, after all others, when `user` is not needed any more; also where subscribing fails.
    void (*released)(void* user);
} quorin_handlers;

/// Starts what the stream stands for: a load, a request, the observation of a value. `subscription` may be null where
/// nobody wants to end it early; values that are there at once arrive before this returns.
quorin_status quorin_observable_subscribe(quorin_handle observable, const quorin_handlers* handlers, void* user,
                                          quorin_handle* subscription);

/// Ends the subscription: on the thread that delivers nothing more is called after this, on another one the call under
/// way is finished. A transfer is abandoned. A second time does nothing.
quorin_status quorin_subscription_dispose(quorin_handle subscription);

/// Subscribes and waits for the one result: QUORIN_OK and a value (QUORIN_NONE for a removed identity value), or
/// QUORIN_FAILED and an error; the other handle is QUORIN_NONE. QUORIN_ABSENT where the stream completes without
/// either. Not for use inside a handler.
quorin_status quorin_observable_wait(quorin_handle observable, quorin_handle* value, quorin_handle* error);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
