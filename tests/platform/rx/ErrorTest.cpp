#include "quorin/platform/rx/Error.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quorin::rx {
namespace {

struct Other {
    static constexpr std::string_view errorName = "test.Other";
    std::string description() const { return "other"; }
};

/// What another shared library's `Broken` looks like: its name has the same text at another address.
struct Twin {
    static inline const std::string text = "test.Broken";
    static inline const std::string_view errorName = text;
    int code = 0;
    std::string description() const { return "twin"; }
};

TEST(Error, YieldsTheErrorItWasMadeFrom) {
    const Error error = Broken{7};
    ASSERT_NE(error.as<Broken>(), nullptr);
    EXPECT_EQ(error.as<Broken>()->code, 7);
}

TEST(Error, IsNullAsAnyOtherType) {
    const Error error = Broken{7};
    EXPECT_EQ(error.as<Other>(), nullptr);
}

TEST(Error, TellsTypesApartByTheTextOfTheirName) {
    const Error error = Broken{7};
    ASSERT_NE(Twin::errorName.data(), Broken::errorName.data());
    ASSERT_NE(error.as<Twin>(), nullptr);
    EXPECT_EQ(error.as<Twin>()->code, 7);
}

TEST(Error, DescribesItselfInTheWordsOfWhatItHolds) { EXPECT_EQ(Error(Broken{7}).description(), "broken 7"); }

TEST(Error, SharesItsContentWithItsCopies) {
    const Error error = Broken{7};
    const Error copy = error;
    EXPECT_EQ(copy.as<Broken>(), error.as<Broken>());
}

}  // namespace
}  // namespace quorin::rx
