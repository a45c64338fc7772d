#include "quorin/platform/skell/Loop.hpp"

#include "quorin/platform/skell/Exchange.hpp"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <system_error>

namespace quorin::skell {
namespace {

constexpr std::chrono::seconds patienceAtExit{2};
constexpr int untilWoken = 60 * 60 * 1000;  // milliseconds
constexpr int withoutWaking = 20;           // milliseconds, where no descriptors were left for waking
constexpr std::size_t mostIdleHandles = 16;
constexpr long mostIdleConnections = 32;

/// The host's signals are for the host's threads, and SIGPIPE, which a closed connection raises, is for nobody. What a
/// faulty instruction raises cannot be kept off.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        for (const int own : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS, SIGPROF}) sigdelset(&all, own);
        pthread_sigmask(SIG_BLOCK, &all, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_{};
};

}  // namespace

Loop& Loop::shared() {
    static Loop& loop = *new Loop;
    static const bool isStarted = (loop.start(), true);
    static_cast<void>(isStarted);
    return loop;
}

Loop::Loop() = default;

// libcurl starts OpenSSL, which takes itself down in a handler of the exit. Handlers run last to first, so ours, which
// comes after it, ends the thread while OpenSSL still stands.
void Loop::start() {
    if (!openCurl() || curl().global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) return;
    CURLM* const multi = curl().multi_init();
    if (!multi) return;
    curl().multi_setopt(multi, CURLMOPT_MAXCONNECTS, mostIdleConnections);
    pollTime_ = curl().multi_wakeup(multi) == CURLM_OK ? untilWoken : withoutWaking;
    multi_ = multi;
    if (std::atexit([] { shared().stop(); }) != 0) return;
    const SignalsBlocked blocked;
    try {
        thread_ = std::thread([this] { run(); });
        threadID_ = thread_.get_id();
        process_ = getpid();
    } catch (const std::system_error&) {
        return;  // post() tells: no thread
    }
}

std::optional<SkellError::Kind> Loop::post(Task task) {
    if (!hasThread()) return SkellError::Kind::network;
    bool isFirst = false;
    {
        const std::lock_guard lock(mutex_);
        if (isStopping_) return SkellError::Kind::cancelled;
        isFirst = tasks_.empty();
        tasks_.push_back(std::move(task));
    }
    if (isFirst && !isOnThread()) curl().multi_wakeup(multi_);
    return std::nullopt;
}

bool Loop::isStopping() const {
    const std::lock_guard lock(mutex_);
    return isStopping_;
}

CURL* Loop::acquire() {
    if (idle_.empty()) return curl().easy_init();
    CURL* const easy = idle_.back();
    idle_.pop_back();
    return easy;
}

void Loop::release(CURL* easy) {
    if (idle_.size() == mostIdleHandles) return curl().easy_cleanup(easy);
    curl().easy_reset(easy);
    idle_.push_back(easy);
}

bool Loop::add(CURL* easy, std::shared_ptr<Exchange> exchange) {
    if (curl().multi_add_handle(multi_, easy) != CURLM_OK) return false;
    running_[easy] = std::move(exchange);
    return true;
}

void Loop::remove(CURL* easy) {
    curl().multi_remove_handle(multi_, easy);
    running_.erase(easy);
}

void Loop::run() {
    while (!isStopping()) {
        runTasks();
        int active = 0;
        CURLMcode code = curl().multi_perform(multi_, &active);
        deliverEnded();
        if (code == CURLM_OK && !hasTasks()) code = curl().multi_poll(multi_, nullptr, 0, pollTime_, nullptr);
        if (code == CURLM_OK) continue;
        failAll(CURLE_OUT_OF_MEMORY);
        std::this_thread::sleep_for(std::chrono::milliseconds(withoutWaking));  // it may fail again at once
    }
    cancelAll();
    finish();
}

/// Handlers post on the thread itself, which wakes nobody.
bool Loop::hasTasks() const {
    const std::lock_guard lock(mutex_);
    return !tasks_.empty();
}

void Loop::runTasks() {
    for (;;) {
        parkIfAbandoned();
        Task task;
        {
            const std::lock_guard lock(mutex_);
            if (tasks_.empty()) return;
            task = std::move(tasks_.front());
            tasks_.pop_front();
        }
        task();
    }
}

/// One at a time: after each handler the process may be exiting, and then those behind it have to hear of that.
void Loop::deliverEnded() {
    int left = 0;
    while (!isStopping()) {
        const CURLMsg* const message = curl().multi_info_read(multi_, &left);
        if (!message) return;
        if (message->msg != CURLMSG_DONE) continue;
        CURL* const easy = message->easy_handle;
        const CURLcode code = message->data.result;
        const auto running = running_.find(easy);
        const std::shared_ptr<Exchange> exchange = running == running_.end() ? nullptr : running->second;
        remove(easy);
        if (exchange) exchange->hopEnded(code);
    }
}

void Loop::failAll(CURLcode code) {
    while (!running_.empty()) {
        const auto [easy, exchange] = *running_.begin();
        remove(easy);
        exchange->hopEnded(code);
    }
}

void Loop::cancelAll() {
    runTasks();  // requests not yet begun see that the loop is stopping
    while (!running_.empty()) {
        const auto [easy, exchange] = *running_.begin();
        running_.erase(easy);
        exchange->fail(SkellError::Kind::cancelled, "the process is exiting");
        parkIfAbandoned();
    }
}

/// Where an exit has not waited for this thread, whatever it touched would be gone, OpenSSL's own data of a thread too.
void Loop::parkIfAbandoned() {
    {
        const std::lock_guard lock(mutex_);
        if (!isAbandoned_) return;
    }
    for (;;) pause();
}

void Loop::finish() {
    {
        const std::lock_guard lock(mutex_);
        isFinished_ = !isAbandoned_;
    }
    finished_.notify_all();
    parkIfAbandoned();
}

void Loop::stop() {
    if (!hasThread()) return;
    {
        const std::lock_guard lock(mutex_);
        isStopping_ = true;
    }
    if (isOnThread()) return cancelAll();  // from a handler, to which it won't return
    curl().multi_wakeup(multi_);
    std::unique_lock lock(mutex_);
    isAbandoned_ = !finished_.wait_for(lock, patienceAtExit, [this] { return isFinished_; });
    if (isAbandoned_) return;
    lock.unlock();
    thread_.join();
}

}  // namespace quorin::skell
