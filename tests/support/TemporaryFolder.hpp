#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace quorin::support {

/// A directory of its own for one test, removed with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "quorin-test-XXXXXX";
        if (mkdtemp(name.data())) path_ = name;
    }
    ~TemporaryFolder() {
        namespace fs = std::filesystem;
        std::error_code ignored;
        if (path_.empty()) return;
        // A test may have closed directories, which would stay.
        fs::permissions(path_, fs::perms::owner_all, ignored);
        for (fs::recursive_directory_iterator at(path_, ignored), end; at != end; at.increment(ignored)) {
            if (at->is_directory(ignored) && !at->is_symlink(ignored)) {
                fs::permissions(at->path(), fs::perms::owner_all, ignored);
            }
        }
        fs::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string file(std::string_view name) const { return path_ + "/" + std::string(name); }

    /// A file with this content, and its path.
    std::string write(std::string_view name, std::string_view content) const {
        const std::string path = file(name);
        std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
        return path;
    }

private:
    std::string path_;
};

/// The file as another program would read it.
inline std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace quorin::support
