#include "quorin/core/Instance.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/threads/Race.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using Instance = ConfigurationManager::Instance;
using Pointer = Instance::ConfigurationPointer;

/// A manager, and two documents whose every part tells which one it is of.
class TwoDocuments : public testing::Test {
protected:
    std::string load(const std::string& name, Brand brand) const {
        const auto loaded = rx::wait(manager_.initialize(PathURL{bed_.folder().file(name)},
                                                         {.deviceID = name, .brand = brand, .version = name}));
        return loaded ? "" : loaded.error().description();
    }

    /// Both are loaded again and again.
    threads::Race& loads() {
        return race_.add(1, [this] { return load("first", Brand::orvel); }).add(1, [this] {
            return load("second", Brand::brisan);
        });
    }

    /// Why a configuration is not all of one document; empty where it is.
    static std::string flawOf(const Configuration& configuration) {
        const std::string& name = *configuration.version;
        if (configuration.device != name) return "another device";
        if (configuration.brand != (name == "first" ? Brand::orvel : Brand::brisan)) return "another brand";
        if (configuration.common->adChoices != name) return "another common section";
        if (!configuration.features->contains(name)) return "other features";
        return configuration.webServices->contains(name) ? "" : "other endpoints";
    }

    void SetUp() override {
        write("first", Brand(Brand::orvel).ID());
        write("second", Brand(Brand::brisan).ID());
        ASSERT_EQ(load("first", Brand::orvel), "");
    }

    const Testbed bed_{};
    Instance manager_{bed_.start()};
    threads::Race race_{};

private:
    void write(const std::string& name, std::string_view brand) const {
        bed_.folder().write(
            name, "{\"" + std::string(brand) + "\": {\"common\": {\"adChoices\": \"" + name + "\"}, \"features\": {\""
                      + name + "\": {\"params\": {}}}, \"webservices\": {\"" + name
                      + "\": {\"url\": {\"value\": \"http://h/\"}, \"method\": \"GET\", \"header\": {}}}}}");
    }
};

TEST_F(TwoDocuments, AreNeverMixedForAReader) {
    const auto read = [this] {
        const Pointer configuration = manager_.configuration();
        return flawOf(*configuration);
    };
    EXPECT_EQ(loads().add(6, read).run(), std::set<std::string>());
}

TEST_F(TwoDocuments, HaveReportsOfTheirOwn) {
    const auto read = [this]() -> std::string {
        const auto report = manager_.loadReport();
        const std::string& name = *report->configuration->version;
        if (!report->source.ends_with(name)) return "the report of another";
        if (manager_.supportCard().text().empty()) return "no card";
        return flawOf(*report->configuration);
    };
    EXPECT_EQ(loads().add(6, read).run(), std::set<std::string>());
}

TEST_F(TwoDocuments, LeaveHeadersAndTimeZoneWhole) {
    const auto ask = [this]() -> std::string {
        const StringMap headers = manager_.defaultHeaders();
        const std::string& version = headers.at("appversion");
        if (version != "first" && version != "second") return "the version " + version;
        if (headers.at("VEXO-USERTZ").size() != 5) return "the zone " + headers.at("VEXO-USERTZ");
        return manager_.userZ().size() == 5 ? "" : "a torn zone";
    };
    EXPECT_EQ(loads().add(6, ask).run(), std::set<std::string>());
}

}  // namespace
}  // namespace quorin
