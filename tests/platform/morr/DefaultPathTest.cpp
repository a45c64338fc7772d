#include "quorin/platform/morr/MorrStandard.hpp"

#include "tests/support/Environment.hpp"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cerrno>

namespace quorin {
namespace {

using support::Environment;

TEST(DefaultPath, LiesInTheDataFolder) {
    const Environment data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(MorrStandard::defaultPath("Sample"), "/data/Sample/store.db");
}

TEST(DefaultPath, LiesBelowTheHomeWithoutAnAbsoluteDataFolder) {
    const Environment home("HOME", "/home/me");
    for (const std::optional<std::string>& folder : {std::optional<std::string>(), {""}, {"relative"}}) {
        const Environment data("XDG_DATA_HOME", folder);
        EXPECT_EQ(MorrStandard::defaultPath("Sample"), "/home/me/.local/share/Sample/store.db");
    }
}

TEST(DefaultPath, AsksTheUserDatabaseForAHomeThatIsNotSet) {
    const Environment data("XDG_DATA_HOME", std::nullopt);
    const Environment home("HOME", std::nullopt);
    const passwd* entry = getpwuid(getuid());
    const std::string below = entry ? std::string(entry->pw_dir) + "/.local/share/Sample/store.db" : ":memory:";
    EXPECT_EQ(MorrStandard::defaultPath("Sample"), below);
}

TEST(DefaultPath, LeadsNowhereElseWhateverTheName) {
    const Environment data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(MorrStandard::defaultPath("../../etc"), "/data/..%2F..%2Fetc/store.db");
    EXPECT_EQ(MorrStandard::defaultPath("."), "/data/%2E/store.db");
    EXPECT_EQ(MorrStandard::defaultPath(".."), "/data/%2E%2E/store.db");
    EXPECT_EQ(MorrStandard::defaultPath("a%2Fb"), "/data/a%252Fb/store.db");
    EXPECT_EQ(MorrStandard::defaultPath(std::string_view("a\0b", 3)), "/data/a%00b/store.db");
}

TEST(DefaultPath, NamesAnAppWithoutABundleNameAfterItsProgram) {
    const Environment data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(MorrStandard::defaultPath(""), std::string("/data/") + program_invocation_short_name + "/store.db");
}

}  // namespace
}  // namespace quorin
