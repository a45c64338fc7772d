#ifndef QUORIN_FACADE_C_MAP_H
#define QUORIN_FACADE_C_MAP_H

#include "quorin/facade/c/base.h"

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// A map holds texts or objects under names, in byte order of the names; the header fields of a response are in the
/// order in which they came, and names may occur again. It never changes. Positions begin at 0.

quorin_status quorin_map_count(quorin_handle map, uint64_t* count);

/// QUORIN_ABSENT behind the last position.
quorin_status quorin_map_name(quorin_handle map, uint64_t position, char* buffer, uint64_t capacity, uint64_t* size);

/// The text at the position; QUORIN_ABSENT in a map of objects, and behind the last position.
quorin_status quorin_map_text(quorin_handle map, uint64_t position, char* buffer, uint64_t capacity, uint64_t* size);

/// The object at the position; QUORIN_ABSENT in a map of texts, and behind the last position.
quorin_status quorin_map_object(quorin_handle map, uint64_t position, quorin_handle* object);

/// The first position of a name, which it looks for one after the other, compared by bytes; QUORIN_ABSENT where there
/// is none.
quorin_status quorin_map_find(quorin_handle map, quorin_text name, uint64_t* position);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
