// A load for which memory is missing leaves everything as it was.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/faults/EachAllocation.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

namespace quorin {
namespace {

using faults::Failed;
using Manager = ConfigurationManager::Instance;

/// A manager that is configured, and a document to load another brand of.
class LoadWithoutMemory : public testing::Test {
protected:
    rx::Result<Manager::ConfigurationPointer> load(const LoadArguments& arguments) const {
        return rx::wait(manager_.initialize(file_, arguments));
    }

    void begin() {
        before_ = *load({.deviceID = "the device before", .brand = Brand::brisan});
        manager_.setUserZ("+0130");
        report_ = manager_.loadReport();
    }

    /// A load that has done without the allocation that failed is a load like any other.
    void look(bool hasLoaded, const Failed& failed) {
        EXPECT_TRUE(failed.isThrown || hasLoaded);
        if (hasLoaded) {
            EXPECT_EQ(manager_.configuration()->brand, Brand::orvel);
            return begin();
        }
        EXPECT_EQ(manager_.configuration(), before_);
        EXPECT_EQ(manager_.userZ(), "+0130");
        EXPECT_EQ(manager_.loadReport(), report_);
        EXPECT_EQ(failed.kept, 0);
    }

    /// How many allocations a load takes.
    long failEachOf(const LoadArguments& arguments) {
        load(arguments).value();
        begin();
        std::optional<rx::Observable<Manager::ConfigurationPointer>> loading;
        return faults::failEach([&] { loading.emplace(manager_.initialize(file_, arguments)); },
                                [&](const Failed& failed) {
                                    look(loading && rx::wait(*loading), failed);
                                    loading.reset();
                                });
    }

    const Testbed bed_{};
    const PathURL file_{QUORIN_SOURCE_DIR "/examples/documents/family.json"};
    Manager manager_{bed_.start()};
    Manager::ConfigurationPointer before_{};
    std::shared_ptr<const LoadReport> report_{};
};

TEST_F(LoadWithoutMemory, LeavesTheDocumentBefore) {
    EXPECT_GT(failEachOf({.deviceID = "a device with a long name", .brand = Brand::orvel}), 20);
}

TEST_F(LoadWithoutMemory, LeavesTheReportBefore) {
    EXPECT_GT(failEachOf({.brand = Brand::orvel, .findings = true}), 20);
}

TEST_F(LoadWithoutMemory, IsFollowedByOneThatSucceeds) {
    begin();
    faults::failAfter(3, faults::Then::fails);
    EXPECT_THROW(static_cast<void>(load({.brand = Brand::orvel})), std::bad_alloc);
    faults::stopFailing();
    EXPECT_TRUE(load({.brand = Brand::orvel}));
    EXPECT_EQ(manager_.configuration()->brand, Brand::orvel);
}

}  // namespace
}  // namespace quorin
