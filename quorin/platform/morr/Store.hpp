#pragma once

#include "quorin/platform/morr/Database.hpp"
#include "quorin/platform/morr/Options.hpp"
#include "quorin/platform/morr/Status.hpp"
#include "quorin/platform/morr/StoreFile.hpp"
#include "quorin/platform/morr/StoredValue.hpp"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::morr {

/// A store in its file, with what could not be brought there. For one thread at a time.
class Store {
public:
    /// Opens the file at once.
    explicit Store(const Options& options);

    std::optional<StoredValue> get(std::string_view key);
    StoredValues all();
    /// An absent value removes the key.
    void change(std::string_view key, std::optional<StoredValue> value);
    /// What is there in the end.
    StoredValue claim(std::string_view key, StoredValue value);
    const Status& status() const { return trouble_ ? *trouble_ : state_; }

private:
    /// What is to stand under the keys instead of what the file holds; absent: nothing.
    using Changes = std::map<std::string, std::optional<StoredValue>, std::less<>>;

    void open();
    void openFile();
    bool connect(const StoreFile& file);
    void setAside(StoreFile file, const Outcome& outcome);
    void giveUp(const std::string& problem);
    void noteTrouble(Status::Kind kind, const Outcome& outcome);
    bool isOnFile();
    template <class Step>
    Outcome onFile(Step step);
    Outcome writeNow(std::string_view key, const std::optional<StoredValue>& value);
    bool bringToFile(Changes::iterator change);

    Options options_;
    /// Absent: everything is in memory.
    std::optional<Database> database_;
    /// Until it is settled how the store works; memory may end before.
    bool isToBeOpened_ = true;
    StoreFile file_;
    Changes kept_;
    Status state_;
    /// A failure that lasts until a step succeeds with nothing kept back.
    std::optional<Status> trouble_;
};

}  // namespace quorin::morr
