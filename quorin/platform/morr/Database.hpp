#pragma once

#include "quorin/platform/morr/Connection.hpp"
#include "quorin/platform/morr/Outcome.hpp"
#include "quorin/platform/morr/StoreFile.hpp"
#include "quorin/platform/morr/StoredValue.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace quorin::morr {

/// One connection to a store's file: SQLite in WAL mode, durable at each change. For one thread at a time.
class Database {
public:
    Database() = default;

    /// Opens the file and makes the table in an empty one. A file that cannot be written is opened for reading.
    Outcome open(const StoreFile& file);

    bool isReadOnly() const { return connection_.isReadOnly(); }

    /// False once the file was deleted, renamed or replaced.
    bool isInPlace() const { return connection_.isInPlace(); }

    /// Absent when no row has the key, or its row holds no value of ours.
    Outcome read(std::string_view key, std::optional<StoredValue>& value);

    /// One SELECT of the whole table.
    Outcome readAll(StoredValues& values);

    /// On the disk when it is done.
    Outcome write(std::string_view key, const StoredValue& value);
    Outcome erase(std::string_view key);

    /// Writes unless a value of the same type is there, whoever put it, and yields what is there then.
    Outcome claim(std::string_view key, const StoredValue& value, std::optional<StoredValue>& there);

    /// Closing will not carry the journal over into the file: for a file that is damaged or not ours.
    void leaveAsItIs() const { connection_.carryOver(false); }

private:
    /// Whether the file has any tables, and whether one is a store's.
    struct Tables {
        bool any = false;
        bool ours = false;
    };

    Outcome connect(const StoreFile& file, const std::string& name, int flags);
    Outcome checkContent(const StoreFile& file);
    Outcome readTables(Tables& tables);
    Outcome checkEncoding();
    Outcome checkStructure();
    Outcome outcomeOfReading(int code);
    Outcome prepareForWriting();

    Connection connection_;
    bool isEmpty_ = false;
    bool isWalked_ = false;  ///< over the whole table, whose pages are checked as they are read
    Statement select_;
    Statement upsert_;
    Statement delete_;
};

}  // namespace quorin::morr
