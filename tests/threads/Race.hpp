#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace quorin::threads {

/// Jobs that are done again and again, each on a thread of its own, until the time of a race is over. What they say of
/// it is the result.
class Race {
public:
    /// Yields what is wrong, in words that are the same each time; nothing where all is well.
    using Job = std::function<std::string()>;

    Race& add(int threads, const Job& job) {
        for (int i = 0; i < threads; ++i) jobs_.push_back(job);
        return *this;
    }

    /// All that was wrong. A second long, or as many as QUORIN_RACE_SECONDS says.
    std::set<std::string> run();

private:
    void repeat(const Job& job);

    std::vector<Job> jobs_{};
    std::atomic<bool> isOver_ = false;
    std::mutex mutex_{};
    std::set<std::string> flaws_{};
};

}  // namespace quorin::threads
