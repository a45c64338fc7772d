#include "quorin/platform/morr/Store.hpp"

namespace quorin::morr {
namespace {

/// Other processes may rename or delete the file while it is being opened; more often than this is no accident.
constexpr int openingTries = 4;

std::string sentence(const std::string& path, const std::string& rest) { return "the store '" + path + "' " + rest; }

std::string unusable(const Outcome& outcome) {
    return "cannot be used (" + outcome.words + "); mend it, move it away or name another file";
}

constexpr char lastsInMemory[] = "; until then values last in memory only";

}  // namespace

Store::Store(const Options& options) : options_(options) { open(); }

void Store::open() {
    isToBeOpened_ = true;
    database_.reset();
    if (options_.path == memoryPath) {
        state_ = {Status::Kind::memory, {}};
    } else {
        openFile();
    }
    isToBeOpened_ = false;
}

void Store::openFile() {
    for (int i = 0; i < openingTries; ++i) {
        file_ = StoreFile::at(options_.path);
        if (file_.isGone) continue;
        if (!file_.problem.empty()) return giveUp(file_.problem);
        if (connect(file_)) return;
    }
    giveUp("is damaged or replaced again and again; name another file");
}

/// True when it is settled how the store works from now on.
bool Store::connect(const StoreFile& file) {
    Database database;
    const Outcome outcome = database.open(file);
    if (outcome) {
        if (state_.kind != Status::Kind::setAside) state_ = {Status::Kind::open, {}};
        if (database.isReadOnly()) {
            state_ = {Status::Kind::readOnly,
                      sentence(file.path, "can be read only; allow writing it") + lastsInMemory};
        }
        database_ = std::move(database);
        return true;
    }
    if (outcome.kind == Outcome::Kind::damaged && options_.setAsideDamaged) {
        database = Database();
        return setAside(file, outcome), !file_.problem.empty();
    }
    if (!file.isInPlace()) return false;
    return giveUp(unusable(outcome)), true;
}

void Store::setAside(StoreFile file, const Outcome& outcome) {
    const std::string name = file.setAside();
    if (!file.problem.empty()) {
        file_.problem = file.problem;
        return giveUp(file.problem);
    }
    if (name.empty()) return;
    state_ = {Status::Kind::setAside,
              sentence(file.path, "was damaged (" + outcome.words + ") and a new one was begun; the old one is '" + name
                                      + "', look there for what is missing")};
}

void Store::giveUp(const std::string& problem) {
    database_.reset();
    state_ = {Status::Kind::unavailable, sentence(options_.path, problem) + lastsInMemory};
    trouble_.reset();
    isToBeOpened_ = false;
}

void Store::noteTrouble(Status::Kind kind, const Outcome& outcome) {
    const bool isLocked = outcome.kind == Outcome::Kind::busy;
    std::string rest = kind == Status::Kind::writeFailed ? "cannot be written (" : "cannot be read (";
    rest += outcome.words + "); ";
    rest += isLocked ? "end the program that holds it" : "make space on its disk, or look whether it is broken";
    trouble_ = {kind, sentence(file_.path, rest + lastsInMemory)};
}

/// A file that was deleted or replaced meanwhile is opened, or made, anew.
bool Store::isOnFile() {
    if (isToBeOpened_ || (database_ && !database_->isInPlace())) open();
    return database_.has_value();
}

/// Runs a step on the file, and once more on the new file when the old one turns out to be damaged.
template <class Step>
Outcome Store::onFile(Step step) {
    Outcome outcome = step();
    if (outcome.kind != Outcome::Kind::damaged) return outcome;
    if (file_.hasWriteAheadLog()) database_->leaveAsItIs();  // an empty one would only stay behind
    isToBeOpened_ = true;
    database_.reset();
    if (!options_.setAsideDamaged) return giveUp(unusable(outcome)), outcome;
    setAside(file_, outcome);
    if (file_.problem.empty()) open();
    return database_ ? step() : outcome;
}

std::optional<StoredValue> Store::get(std::string_view key) {
    if (const auto kept = kept_.find(key); kept != kept_.end())
        return kept->second ? std::optional(copyOf(*kept->second)) : std::nullopt;
    std::optional<StoredValue> value;
    if (!isOnFile()) return value;
    const Outcome outcome = onFile([&] { return database_->read(key, value); });
    if (!outcome && database_) noteTrouble(Status::Kind::unavailable, outcome);
    if (outcome && kept_.empty()) trouble_.reset();
    return value;
}

StoredValues Store::all() {
    StoredValues values;
    if (isOnFile()) {
        const Outcome outcome = onFile([&] { return database_->readAll(values); });
        if (!outcome && database_) noteTrouble(Status::Kind::unavailable, outcome);
        if (outcome && kept_.empty()) trouble_.reset();
    }
    for (const auto& [key, value] : kept_) {
        if (value) {
            values.insert_or_assign(key, copyOf(*value));
        } else {
            values.erase(key);
        }
    }
    return values;
}

void Store::change(std::string_view key, std::optional<StoredValue> value) {
    const auto change = kept_.insert_or_assign(std::string(key), std::move(value)).first;
    if (!isOnFile() || !bringToFile(change)) return;
    while (!kept_.empty() && bringToFile(kept_.begin())) {
    }
    if (kept_.empty()) trouble_.reset();
}

/// What the file does not take is kept like any other change.
StoredValue Store::claim(std::string_view key, StoredValue value) {
    std::optional<StoredValue> there = get(key);
    if (there && there->index() == value.index()) return *std::move(there);
    const bool isFree = kept_.find(key) == kept_.end() && isOnFile() && !database_->isReadOnly();
    if (isFree && onFile([&] { return database_->claim(key, value, there); })) return *std::move(there);
    change(key, copyOf(value));
    return value;
}

/// Nothing is written where the file holds the value as it is, whoever put it there.
Outcome Store::writeNow(std::string_view key, const std::optional<StoredValue>& value) {
    std::optional<StoredValue> present;
    Outcome outcome = database_->read(key, present);
    if (!outcome || (!present && !value) || (present && value && isSame(*present, *value))) return outcome;
    if (database_->isReadOnly()) return {Outcome::Kind::failed, {}};
    return value ? database_->write(key, *value) : database_->erase(key);
}

bool Store::bringToFile(Changes::iterator change) {
    const Outcome outcome = onFile([&] { return writeNow(change->first, change->second); });
    if (outcome) return kept_.erase(change), true;
    if (database_ && !database_->isReadOnly()) noteTrouble(Status::Kind::writeFailed, outcome);
    return false;
}

}  // namespace quorin::morr
