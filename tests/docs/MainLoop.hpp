#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace quorin {

/// An app's main loop, as far as it matters: tasks that any thread posts run where the loop runs.
class MainLoop {
public:
    void post(std::function<void()> task) {
        const std::lock_guard lock(mutex_);
        tasks_.push_back(std::move(task));
        posted_.notify_one();
    }

    /// Waits for a task and runs it.
    void runOneTask() { take()(); }

private:
    std::function<void()> take() {
        std::unique_lock lock(mutex_);
        posted_.wait(lock, [this] { return !tasks_.empty(); });
        auto task = std::move(tasks_.front());
        tasks_.pop_front();
        return task;
    }

    std::mutex mutex_{};
    std::condition_variable posted_{};
    std::deque<std::function<void()>> tasks_{};
};

}  // namespace quorin
