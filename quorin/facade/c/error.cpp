#include "quorin/facade/c/error.h"

#include "quorin/facade/c/Call.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Error.hpp"
#include "quorin/platform/skell/SkellError.hpp"

namespace {

namespace c = quorin::c;
using quorin::Oops;
using quorin::SkellError;
using quorin::rx::Error;

/// A member of the error, where it is an `E`.
template <class E, class Member>
auto of(Member E::* member) {
    return [member](const Error& error) {
        const E* const it = error.as<E>();
        return it ? std::optional(it->*member) : std::nullopt;
    };
}

std::optional<std::string> messageOf(const Error& error) {
    if (const Oops* const oops = error.as<Oops>()) return oops->message;
    return of(&SkellError::message)(error);
}

}  // namespace

quorin_status quorin_error_description(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<Error>(error, &Error::description, {buffer, capacity, size});
}
quorin_status quorin_error_message(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<Error>(error, messageOf, {buffer, capacity, size});
}
quorin_status quorin_error_component(quorin_handle error, int32_t* component) {
    return c::answer<Error>(error, of(&Oops::component), component);
}
quorin_status quorin_error_element(quorin_handle error, int32_t* element) {
    return c::answer<Error>(error, of(&Oops::element), element);
}
quorin_status quorin_error_code(quorin_handle error, int32_t* code) {
    return c::answer<Error>(error, of(&Oops::errorCode), code);
}
quorin_status quorin_error_kind(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size) {
    const auto kind = [](const Error& it) {
        const SkellError* const failure = it.as<SkellError>();
        return failure ? std::optional(SkellError::name(failure->kind)) : std::nullopt;
    };
    return c::text<Error>(error, kind, {buffer, capacity, size});
}
quorin_status quorin_error_url(quorin_handle error, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<Error>(error, of(&SkellError::url), {buffer, capacity, size});
}
quorin_status quorin_error_status(quorin_handle error, int32_t* status) {
    const auto statusOf = [](const Error& it) {
        const SkellError* const failure = it.as<SkellError>();
        return failure ? failure->status : std::nullopt;
    };
    return c::answer<Error>(error, statusOf, status);
}
