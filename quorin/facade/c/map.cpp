#include "quorin/facade/c/map.h"

#include "quorin/facade/c/Call.hpp"
#include "quorin/facade/c/Map.hpp"

#include <algorithm>

namespace {

namespace c = quorin::c;
using c::Map;

template <class Use>
quorin_status entry(quorin_handle map, std::uint64_t position, Use use) noexcept {
    return c::with<Map>(
        map, [&](const Map& it) { return position < it.entries.size() ? use(it.entries[position]) : QUORIN_ABSENT; });
}

}  // namespace

quorin_status quorin_map_count(quorin_handle map, uint64_t* count) {
    return c::into(count, [&] {
        return c::with<Map>(map, [&](const Map& it) {
            *count = it.entries.size();
            return QUORIN_OK;
        });
    });
}

quorin_status quorin_map_name(quorin_handle map, uint64_t position, char* buffer, uint64_t capacity, uint64_t* size) {
    c::clear({buffer, capacity, size});
    return entry(map, position, [&](const Map::Entry& it) { return c::put(it.name, {buffer, capacity, size}); });
}

quorin_status quorin_map_text(quorin_handle map, uint64_t position, char* buffer, uint64_t capacity, uint64_t* size) {
    c::clear({buffer, capacity, size});
    return entry(map, position,
                 [&](const Map::Entry& it) { return c::put(it.text, c::Buffer{buffer, capacity, size}); });
}

quorin_status quorin_map_object(quorin_handle map, uint64_t position, quorin_handle* object) {
    return c::into(
        object, [&] { return entry(map, position, [&](const Map::Entry& it) { return c::put(it.object, object); }); });
}

quorin_status quorin_map_find(quorin_handle map, quorin_text name, uint64_t* position) {
    return c::into(position, [&]() -> quorin_status {
        const auto wanted = c::viewOf(name);
        if (!wanted) return QUORIN_INVALID_ARGUMENT;
        return c::with<Map>(map, [&](const Map& it) -> quorin_status {
            const auto found = std::ranges::find(it.entries, *wanted, &Map::Entry::name);
            if (found == it.entries.end()) return QUORIN_ABSENT;
            *position = static_cast<std::uint64_t>(found - it.entries.begin());
            return QUORIN_OK;
        });
    });
}
