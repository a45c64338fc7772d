#pragma once

#include <functional>

namespace quorin::faults {

/// What comes after an allocation that failed.
enum class Then { succeeds, fails };

/// From here on, `count` allocations of this thread succeed and the one after them fails; those behind it as `then`
/// says. It is the `operator new` of this program that fails, and with it what the database library takes, but not what
/// other C libraries take from `malloc`.
void failAfter(long count, Then then = Then::succeeds);

/// Lets every allocation succeed again. True if one has failed.
bool stopFailing();

/// What a call takes by the `operator new` of this program, on this thread.
struct Taken {
    long allocations = 0;
    long bytes = 0;  ///< of all of them together
    long peak = 0;   ///< the most that was held at once, beyond what was held before
    long kept = 0;   ///< what is still held at the end
};

/// What `call` takes while it runs.
Taken takenBy(const std::function<void()>& call);

}  // namespace quorin::faults
