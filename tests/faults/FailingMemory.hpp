#pragma once

namespace quorin::faults {

/// From here on, `count` allocations of this thread succeed and the one after them fails, once. It is the `operator
/// new` of this program that fails, so what the C libraries take from `malloc` is not touched.
void failAfter(long count);

/// Lets every allocation succeed again. True if one has failed.
bool stopFailing();

}  // namespace quorin::faults
