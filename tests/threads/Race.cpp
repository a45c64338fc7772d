#include "tests/threads/Race.hpp"

#include <chrono>
#include <condition_variable>
#include <cstdlib>

namespace quorin::threads {
namespace {

std::chrono::seconds duration() {
    const char* const text = std::getenv("QUORIN_RACE_SECONDS");
    return std::chrono::seconds(text ? std::atoi(text) : 1);
}

}  // namespace

std::set<std::string> Race::run() {
    std::vector<std::jthread> threads;
    threads.reserve(jobs_.size());
    for (const Job& job : jobs_) threads.emplace_back([this, &job] { repeat(job); });
    std::condition_variable ended;
    std::unique_lock lock(mutex_);
    ended.wait_for(lock, duration(), [this] { return !flaws_.empty(); });
    isOver_ = true;
    lock.unlock();
    threads.clear();
    return flaws_;
}

void Race::repeat(const Job& job) {
    while (!isOver_) {
        std::string flaw = job();
        if (flaw.empty()) continue;
        const std::lock_guard lock(mutex_);
        flaws_.insert(std::move(flaw));
        isOver_ = true;
    }
}

}  // namespace quorin::threads
