#ifndef QUORIN_FACADE_C_BASE_H
#define QUORIN_FACADE_C_BASE_H

#include <stdint.h>
#include <string.h>

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/// What every function yields. Where it is not QUORIN_OK nothing is left behind, and what the function was to yield is
/// 0 or the empty text; only the length of a text that is too long is told, and the error of what failed. Any thread
/// may call any function.
typedef int32_t quorin_status;
enum {
    QUORIN_OK = 0,
    QUORIN_ABSENT = 1,            ///< there is no such value, which is no error
    QUORIN_FAILED = 2,            ///< the handle of an error says why
    QUORIN_INVALID_HANDLE = 3,    ///< none, a released one, or one of another kind
    QUORIN_INVALID_ARGUMENT = 4,  ///< a null pointer, an integer out of range, or a text that is not the JSON asked for
    QUORIN_TOO_SMALL = 5,         ///< the text does not fit into the buffer
    QUORIN_NO_MEMORY = 6,
    QUORIN_REFUSED = 7  ///< not now: installing where the library is in use, waiting inside a handler
};

/// The name of a status, such as "QUORIN_ABSENT"; "unknown" for any other integer. Never null, never to be freed.
const char* quorin_status_name(quorin_status status);

/// An object of the library: a number that is never used again after its release. Each handle that a function gives is
/// the caller's and is released once, by `quorin_release`; the object lives on while others hold it. Any thread may use
/// any handle; of two threads that set something of one object at once, what one of them set may be lost.
/// Where a process has sent requests, a child that fork(2) makes of it keeps the objects, and its own requests fail.
typedef uint64_t quorin_handle;
enum {
    QUORIN_NONE = 0  ///< no object
};

/// Gives a handle back. The object of a subscription goes on without one.
quorin_status quorin_release(quorin_handle handle);

/// A second handle of the object as it is now, which is how to keep one that is only lent. Parameters and requests, the
/// only objects that can be changed, change behind one handle alone.
quorin_status quorin_copy(quorin_handle handle, quorin_handle* copy);

/// Bytes that the caller owns, UTF-8 where they are text; read before the function returns. A null `data` with a `size`
/// of 0 is no text at all.
typedef struct quorin_text {
    const char* data;
    uint64_t size;
} quorin_text;

/// The text of a string that ends with NUL; no text for a null pointer.
static inline quorin_text quorin_text_of(const char* string) {
    quorin_text text;
    text.data = string;
    text.size = string ? (uint64_t)strlen(string) : 0;
    return text;
}

/// One of several texts under names: a header, a pair of a query.
typedef struct quorin_pair {
    quorin_text name;
    quorin_text value;
} quorin_pair;

/// Every text that a function yields goes into a buffer of the caller's, as here: `size` becomes its length in bytes
/// (null: not wanted), and where `capacity` exceeds that the buffer gets the text and a NUL behind it, else it gets the
/// empty text and the function yields QUORIN_TOO_SMALL. With a null buffer the length is all that is asked for.
///
/// This one reads the text object that the observers of identity values deliver.
quorin_status quorin_text_read(quorin_handle text, char* buffer, uint64_t capacity, uint64_t* size);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif
