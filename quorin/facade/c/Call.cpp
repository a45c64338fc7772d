#include "quorin/facade/c/Call.hpp"

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"

#include <cstdint>

namespace quorin::c {

bool isValid(quorin_text text) { return text.data ? text.size <= PTRDIFF_MAX : text.size == 0; }

std::optional<std::string_view> viewOf(quorin_text text) {
    if (!text.data || !isValid(text)) return std::nullopt;
    return std::string_view(text.data, text.size);
}

std::optional<DocumentMap> mapOf(quorin_text json) {
    const auto text = viewOf(json);
    const auto result = json::parse(text.value_or(""));
    return result ? result.value()->asObject() : std::nullopt;
}

quorin_status put(std::string_view text, Buffer buffer) {
    if (!buffer.data && !buffer.size) return QUORIN_INVALID_ARGUMENT;
    if (buffer.size) *buffer.size = text.size();
    if (!buffer.data) return QUORIN_OK;
    const bool fits = text.size() < buffer.capacity;
    if (fits) text.copy(buffer.data, text.size());
    if (buffer.capacity > 0) buffer.data[fits ? text.size() : 0] = '\0';
    return fits ? QUORIN_OK : QUORIN_TOO_SMALL;
}

quorin_status put(const DocumentMap& map, Buffer buffer) { return put(json::print(map), buffer); }

void clear(Buffer buffer) noexcept {
    if (buffer.size) *buffer.size = 0;
    if (buffer.data && buffer.capacity > 0) *buffer.data = '\0';
}

quorin_status failed(const rx::Error& error, quorin_handle* place) {
    put(Object(error), place);
    return QUORIN_FAILED;
}

quorin_status put(std::int32_t number, std::int32_t* place) {
    *place = number;
    return QUORIN_OK;
}

quorin_status put(Object object, quorin_handle* place) {
    *place = handles().add(std::move(object));
    return QUORIN_OK;
}

}  // namespace quorin::c
