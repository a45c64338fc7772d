#include "quorin/platform/ombrith/Oops.hpp"

#include <gtest/gtest.h>

namespace quorin {
namespace {

using Codes = InstrumentationCodes;

const Oops notFound(Codes::Component::configurationManager, Codes::Element::configInitialization,
                    Codes::ErrorCode::notFound);
const Oops rejected(Codes::Component::configurationManager, Codes::Element::default_, Codes::ErrorCode::jsonParsing,
                    "Model failed to initialize");

TEST(Oops, HoldsItsCodesAndNoMessageUnlessGiven) {
    EXPECT_EQ(notFound.component, Codes::Component::configurationManager);
    EXPECT_EQ(notFound.element, Codes::Element::configInitialization);
    EXPECT_EQ(notFound.errorCode, Codes::ErrorCode::notFound);
    EXPECT_EQ(notFound.message, std::nullopt);
    EXPECT_EQ(rejected.message, "Model failed to initialize");
}

TEST(Oops, DiffersInEachMember) {
    Oops other = notFound;
    EXPECT_EQ(other, notFound);
    other.message = "";
    EXPECT_NE(other, notFound);
    EXPECT_NE(Oops(9, notFound.element, notFound.errorCode), notFound);
    EXPECT_NE(Oops(notFound.component, 9, notFound.errorCode), notFound);
    EXPECT_NE(Oops(notFound.component, notFound.element, 9), notFound);
}

TEST(Oops, DescribesItselfInOneLine) {
    EXPECT_EQ(notFound.description(), "configurationManager: configInitialization: notFound");
    EXPECT_EQ(rejected.description(), "configurationManager: default: jsonParsing: Model failed to initialize");
    EXPECT_EQ(Oops(1, 0, 2, "a\r\nb\x7f").description(), "configurationManager: default: jsonParsing: a  b ");
}

TEST(Oops, IsNamedForErrorsOfStreams) { EXPECT_EQ(Oops::errorName, "Oops"); }

TEST(InstrumentationCodes, PrintTheNamesOfTheirConstants) {
    EXPECT_EQ(Codes::Component::nameOf(Codes::Component::configurationManager), "configurationManager");
    EXPECT_EQ(Codes::Element::nameOf(Codes::Element::configInitialization), "configInitialization");
    EXPECT_EQ(Codes::Element::nameOf(Codes::Element::configurationGuard), "configurationGuard");
    EXPECT_EQ(Codes::Element::nameOf(Codes::Element::default_), "default");
    EXPECT_EQ(Codes::ErrorCode::nameOf(Codes::ErrorCode::notFound), "notFound");
    EXPECT_EQ(Codes::ErrorCode::nameOf(Codes::ErrorCode::jsonParsing), "jsonParsing");
    EXPECT_EQ(Codes::ErrorCode::nameOf(Codes::ErrorCode::invalidParams), "invalidParams");
    EXPECT_EQ(Codes::ErrorCode::nameOf(Codes::ErrorCode::configNotInitialized), "configNotInitialized");
}

TEST(InstrumentationCodes, PrintUnknownCodesAsNumbers) {
    EXPECT_EQ(Codes::Component::nameOf(77), "77");
    EXPECT_EQ(Codes::Element::nameOf(-1), "-1");
    EXPECT_EQ(Codes::ErrorCode::nameOf(0), "0");
}

}  // namespace
}  // namespace quorin
