#pragma once

#include "quorin/platform/skell/Curl.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include <sys/types.h>
#include <unistd.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_map>
#include <vector>

namespace quorin::skell {

class Exchange;

/// The one thread of the library: it moves the bytes of all requests and calls their handlers.
///
/// When the process exits, requests under way fail with `cancelled`, on this thread, before anything that they use is
/// taken down. An exit inside a handler is as good as any other, and a handler that does not return delays it by two
/// seconds at most.
class Loop {
public:
    using Task = std::function<void()>;

    /// Started by the first call and never destroyed.
    static Loop& shared();

    /// Runs `task` on the thread, after those posted before. Any thread. Empty when that is so, otherwise the kind of
    /// failure: the process is exiting, or it has no such thread, which could not be started or is its parent's.
    std::optional<SkellError::Kind> post(Task task);

    // What follows is for the thread itself. Once the loop is stopping, libcurl must be left alone: the exit may have
    // gone on without waiting for a handler.

    /// A handle in its initial state, which keeps its TLS sessions; null when there is no memory.
    CURL* acquire();
    void release(CURL* easy);

    /// `exchange` hears of the end of the transfer, unless that is removed before. False when libcurl refuses.
    bool add(CURL* easy, std::shared_ptr<Exchange> exchange);
    void remove(CURL* easy);

    bool isStopping() const;

private:
    Loop();
    void start();
    void run();
    bool hasTasks() const;
    void runTasks();
    void deliverEnded();
    void failAll(CURLcode code);
    void parkIfAbandoned();
    void finish();
    void stop();
    void cancelAll();

    /// A child process has none: fork(2) leaves the thread behind.
    bool hasThread() const { return threadID_ != std::thread::id() && process_ == getpid(); }
    bool isOnThread() const { return std::this_thread::get_id() == threadID_; }

    CURLM* multi_ = nullptr;
    int pollTime_ = 0;  ///< milliseconds
    std::vector<CURL*> idle_{};
    std::unordered_map<CURL*, std::shared_ptr<Exchange>> running_{};

    mutable std::mutex mutex_{};
    std::condition_variable finished_{};
    std::deque<Task> tasks_{};
    bool isStopping_ = false;
    bool isFinished_ = false;
    bool isAbandoned_ = false;
    std::thread thread_{};
    pid_t process_ = 0;           ///< that the thread belongs to
    std::thread::id threadID_{};  ///< constant after the start, as `thread_` is not when it is joined
};

}  // namespace quorin::skell
