// Any bytes as the file of a store, or as the journal beside a sound one; the first byte says which, and whether a
// damaged file may be set aside. A value is what was there, what was put, or absent; and what is no store is told.
#include "quorin/platform/morr/MorrStandard.hpp"

#include "fuzz/Fuzz.hpp"
#include "fuzz/Scratch.hpp"

#include <filesystem>
#include <string>

namespace quorin::fuzz {
namespace {

using morr::StoredValue;
using morr::StoredValues;
using Kind = morr::Status::Kind;

constexpr std::string_view key = "profile";
constexpr std::string_view magic("SQLite format 3\0", 16);

bool isSame(const StoredValues& left, const StoredValues& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const auto& one, const auto& other) {
        return one.first == other.first && morr::isSame(one.second, other.second);
    });
}

/// Whether nothing is in `after` but what was there.
bool isWithin(const StoredValues& after, const StoredValues& before) {
    return std::all_of(after.begin(), after.end(), [&](const auto& entry) {
        const auto old = before.find(entry.first);
        return old != before.end() && morr::isSame(old->second, entry.second);
    });
}

/// What a store of two values leaves, as long as no process has it open.
const std::string& soundFile() {
    static const std::string& content = *new std::string([] {
        const std::string path = scratch().file("sound.db");
        {
            MorrStandard store({.path = path});
            store.put("old", key);
            store.put(std::int64_t{7}, "count");
        }
        return support::contentOf(path);
    }());
    return content;
}

void removeAll() {
    for (const auto& entry : std::filesystem::directory_iterator(scratch().path())) std::filesystem::remove(entry);
}

struct Case {
    std::string path{};
    std::string content{};
    bool setAside = false;

    morr::Options options() const { return {.path = path, .setAsideDamaged = setAside}; }
};

bool isKept(const morr::Status& status) { return status.kind == Kind::open || status.kind == Kind::setAside; }

/// A file may say of itself that it is of a version that can be read only.
bool isInMemory(const morr::Status& status) {
    return status.kind == Kind::unavailable || status.kind == Kind::readOnly;
}

/// Changes one value; all others stay, unless the file turned out to be damaged.
void checkChange(MorrStandard& store, StoredValues& values, const std::optional<StoredValue>& value) {
    const bool wasKept = store.status().kind == Kind::open;
    if (value)
        store.put(*value, key);
    else
        store.remove(key);
    const auto there = store.get(key);
    require(there.has_value() == value.has_value() && (!value || morr::isSame(*there, *value)), "a change is seen");
    StoredValues expected = values;
    expected.erase(std::string(key));
    if (value) expected.emplace(key, *value);
    values = store.all();
    require(isWithin(values, expected), "no value comes from nowhere");
    if (wasKept && store.status().kind == Kind::open) require(isSame(values, expected), "the other values stay");
}

StoredValues checkUse(const Case& with) {
    MorrStandard store(with.options());
    StoredValues values = store.all();
    if (!with.content.starts_with(magic) && !with.content.empty())
        require(store.status().kind == (with.setAside ? Kind::setAside : Kind::unavailable), "damage is told");
    const auto claimed = store.putIfAbsent(StoredValue("claimed"), "fresh");
    require(std::holds_alternative<std::string>(claimed), "a claim yields a value of its type");
    values = store.all();
    checkChange(store, values, StoredValue("new"));
    checkChange(store, values, std::nullopt);
    checkChange(store, values, StoredValue(std::string("last\0one", 8)));
    require(isKept(store.status()) != isInMemory(store.status()), "a store says how it fares");
    if (!isKept(store.status())) return {};
    return values;
}

void check(const Case& with) {
    const StoredValues values = checkUse(with);
    const bool isSound = !values.empty();
    if (!with.setAside && !isSound && !with.content.starts_with(magic))
        require(support::contentOf(with.path) == with.content, "what is no store stays as it is");
    MorrStandard again(with.options());
    const StoredValues there = again.all();
    if (isSound && again.status().kind == Kind::open) require(isSame(there, values), "what was kept is there");
}

void check(std::string_view input) {
    if (input.empty()) return;
    const std::string& sound = soundFile();
    removeAll();
    const bool isJournal = (input[0] & 2) != 0;
    const std::string_view bytes = input.substr(1);
    Case with{.path = scratch().write("s.db", isJournal ? std::string_view(sound) : bytes),
              .content = std::string(isJournal ? std::string_view(sound) : bytes),
              .setAside = (input[0] & 1) != 0};
    if (isJournal) scratch().write("s.db-wal", bytes);
    check(with);
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
