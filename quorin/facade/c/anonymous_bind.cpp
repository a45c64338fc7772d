#include "quorin/facade/c/anonymous_bind.h"

#include "quorin/facade/KVTAnonymousBind.hpp"
#include "quorin/facade/c/Call.hpp"

namespace c = quorin::c;
using quorin::KVTAnonymousBind;

quorin_status quorin_anonymous_bind_make(quorin_text profile_id, quorin_text profile_jwt,
                                         quorin_handle* anonymous_bind) {
    return c::into(anonymous_bind, [&]() -> quorin_status {
        auto profile = c::textOf(profile_id);
        auto token = c::textOf(profile_jwt);
        if (!profile || !token) return QUORIN_INVALID_ARGUMENT;
        return c::put(KVTAnonymousBind(*std::move(profile), *std::move(token)), anonymous_bind);
    });
}
quorin_status quorin_anonymous_bind_profile_id(quorin_handle anonymous_bind, char* buffer, uint64_t capacity,
                                               uint64_t* size) {
    return c::text<KVTAnonymousBind>(anonymous_bind, &KVTAnonymousBind::profileID, {buffer, capacity, size});
}
quorin_status quorin_anonymous_bind_profile_jwt(quorin_handle anonymous_bind, char* buffer, uint64_t capacity,
                                                uint64_t* size) {
    return c::text<KVTAnonymousBind>(anonymous_bind, &KVTAnonymousBind::profileJWT, {buffer, capacity, size});
}
quorin_status quorin_anonymous_bind_encode(quorin_handle anonymous_bind, char* buffer, uint64_t capacity,
                                           uint64_t* size) {
    return c::text<KVTAnonymousBind>(anonymous_bind, &KVTAnonymousBind::encode, {buffer, capacity, size});
}
quorin_status quorin_anonymous_bind_from_encoded(quorin_text json, quorin_handle* anonymous_bind) {
    return c::fromEncoded<KVTAnonymousBind>(json, anonymous_bind);
}
