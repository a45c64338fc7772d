#pragma once

#include "tests/support/TemporaryFolder.hpp"

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>

namespace quorin::support {

/// A child process that runs `work` and ends; what it hands to `say` is read here line by line.
class Child {
public:
    using Say = std::function<void(const std::string&)>;

    explicit Child(const std::function<void(const Say&)>& work) {
        int ends[2];
        if (pipe(ends) != 0) return;
        process_ = fork();
        if (process_ == 0) {
            work([&](const std::string& line) {
                const std::string text = line + "\n";
                if (write(ends[1], text.data(), text.size()) < 0) _exit(1);
            });
            _exit(0);
        }
        close(ends[1]);
        output_ = ends[0];
    }
    ~Child() {
        finish();
        close(output_);
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// The next line; empty at the end.
    std::string line() const {
        std::string text;
        char c = 0;
        while (read(output_, &c, 1) == 1 && c != '\n') text += c;
        return text;
    }

    void kill() const { ::kill(process_, SIGKILL); }

    /// Waits for the end; true after a regular one.
    bool finish() {
        if (process_ > 0) waitpid(process_, &status_, 0);
        process_ = -1;
        return status_ == 0;
    }

private:
    pid_t process_ = -1;
    int output_ = -1;
    int status_ = -1;
};

/// The one line that `work` yields in a process of its own.
inline std::string inChild(const std::function<std::string()>& work) {
    return Child([&](const Child::Say& say) { say(work()); }).line();
}

/// Makes the process one without privileges, which file modes do bind.
inline void becomeNobody() {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(1);
}

/// No file of this process may grow beyond it, as on a full disk.
inline void limitFiles(rlim_t size) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = size;
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// Where a process without privileges can do as it likes.
inline void openToAll(const TemporaryFolder& folder) { chmod(folder.path().c_str(), 0777); }

}  // namespace quorin::support
