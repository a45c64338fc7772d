#include "quorin/core/Instance.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/threads/Race.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

namespace quorin {
namespace {

using Instance = ConfigurationManager::Instance;

/// Each letter of it is the same, and it is too long to be held in place, so that any mixture is seen.
std::string wholeText() {
    static std::atomic<int> count = 0;
    return std::string(40, static_cast<char>('a' + ++count % 26));
}

bool isWhole(const std::string& text) { return text.size() == 40 && text == std::string(40, text[0]); }

TEST(Identity, IsAssignedWhileOthersSubscribeAndLeave) {
    const Testbed bed;
    Instance manager(bed.start());
    manager.setParentProfileID(wholeText());
    const auto assign = [&]() -> std::string {
        manager.setParentProfileID(wholeText());
        return isWhole(manager.parentProfileID()) ? "" : "a torn value";
    };
    const auto follow = [&]() -> std::string {
        const auto isTorn = std::make_shared<std::atomic<bool>>(false);
        const auto subscription = manager.parentProfileIDObserver().subscribe({.next = [isTorn](const std::string& id) {
            if (!isWhole(id)) *isTorn = true;
        }});
        manager.parentProfileID();
        subscription.dispose();
        return *isTorn ? "a torn event" : "";
    };
    EXPECT_EQ(threads::Race().add(4, assign).add(4, follow).run(), std::set<std::string>());
    EXPECT_EQ(bed.stored("com.vexodigitalMedia.parent.profileID"), manager.parentProfileID());
}

TEST(Store, IsReadAndWrittenByAll) {
    const support::TemporaryFolder folder;
    MorrStandard store({.path = folder.file("s.db")});
    const auto write = [&]() -> std::string {
        store.put(wholeText(), "key");
        store.remove("other");
        return store.status().kind == morr::Status::Kind::open ? "" : store.status().message;
    };
    const auto read = [&]() -> std::string {
        const auto value = store.get("key");
        if (value && !isWhole(std::get<std::string>(*value))) return "a torn value";
        return store.all().size() <= 1 ? "" : "a value of nobody's";
    };
    EXPECT_EQ(threads::Race().add(4, write).add(4, read).run(), std::set<std::string>());
}

}  // namespace
}  // namespace quorin
