#include "quorin/core/QuorinConfigManagerVersion.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

TEST(QuorinConfigManagerVersion, IsThreeNumbersOfWhichTheFirstTwoAreTheDouble) {
    const std::string text = QuorinConfigManagerVersionString;
    const auto beforePatch = text.rfind('.');

    EXPECT_EQ(std::strtod(text.substr(0, beforePatch).c_str(), nullptr), QuorinConfigManagerVersionNumber);
    EXPECT_GT(QuorinConfigManagerVersionNumber, 0.0);
    EXPECT_NE(text.find('.'), beforePatch);
}

}  // namespace
