#include "quorin/facade/c/base.h"

#include "quorin/facade/c/Call.hpp"

#include <array>
#include <cstddef>

namespace c = quorin::c;

const char* quorin_status_name(quorin_status status) {
    static constexpr std::array names{
        "QUORIN_OK",        "QUORIN_ABSENT",    "QUORIN_FAILED", "QUORIN_INVALID_HANDLE", "QUORIN_INVALID_ARGUMENT",
        "QUORIN_TOO_SMALL", "QUORIN_NO_MEMORY", "QUORIN_REFUSED"};
    const auto place = static_cast<std::size_t>(status);
    return place < names.size() ? names[place] : "unknown";
}

quorin_status quorin_release(quorin_handle handle) {
    return c::guarded([&] { return c::handles().release(handle) ? QUORIN_OK : QUORIN_INVALID_HANDLE; });
}

quorin_status quorin_copy(quorin_handle handle, quorin_handle* copy) {
    return c::into(copy, [&] {
        const auto object = c::handles().find(handle);
        return object ? c::put(*object, copy) : QUORIN_INVALID_HANDLE;
    });
}

quorin_status quorin_text_read(quorin_handle text, char* buffer, uint64_t capacity, uint64_t* size) {
    return c::text<std::string>(text, [](const std::string& it) -> std::string_view { return it; },
                                {buffer, capacity, size});
}
