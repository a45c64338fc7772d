#pragma once

#include "tests/faults/FailingMemory.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <new>

namespace quorin::faults {

/// What became of a call in which an allocation failed. One that did not throw has done without.
struct Failed {
    bool isThrown = false;
    long kept = 0;  ///< bytes that it holds afterwards
};

/// The call with the allocation behind the first `count` failing; empty of failure where it takes no more than those.
inline bool fails(long count, Then then, const std::function<void()>& call, Failed& failed) {
    bool hasFailed = false;
    failed = {};
    failed.kept = takenBy([&] {
                      failAfter(count, then);
                      try {
                          call();
                      } catch (const std::bad_alloc&) {
                          failed.isThrown = true;
                      }
                      hasFailed = stopFailing();
                  }).kept;
    return hasFailed;
}

/// Calls with the first allocation failing, then with the second, and so on until none fails; all that again with
/// everything behind that allocation failing too. `look` sees what each failure left. Yields how many allocations a
/// call takes.
inline long failEach(const std::function<void()>& call, const std::function<void(const Failed&)>& look) {
    long most = 0;
    for (const Then then : {Then::succeeds, Then::fails}) {
        Failed failed;
        for (long count = 0; fails(count, then, call, failed); ++count) {
            SCOPED_TRACE(testing::Message()
                         << "allocation " << count << (then == Then::fails ? " and all others" : ""));
            look(failed);
            most = count + 1;
        }
        EXPECT_FALSE(failed.isThrown);
    }
    return most;
}

/// The same for a call that hands nothing on, and so has to give everything back.
inline long failEachAndKeepNothing(const std::function<void()>& call) {
    call();  // makes what is made once and for all
    return failEach(call, [](const Failed& failed) { EXPECT_EQ(failed.kept, 0); });
}

}  // namespace quorin::faults
