#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/table/FindingKind.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quorin {
namespace {

/// The codes of what a read of the document tells, each followed by a blank.
std::string codesIn(std::string_view document) {
    ReadReport report;
    Configuration::fromJSON(*json::parse(document).value()->asObject(), &report);
    std::string codes;
    for (const Finding& finding : report.findings) codes += std::string(kindOf(finding).code) + " ";
    return codes;
}

TEST(FindingKind, TellsAWrongTypeFromAValueInQuotes) {
    EXPECT_EQ(codesIn(R"({"auth": {"sso": [], "initTimeout": "soon"}})"), "wrong-type wrong-type ");
    EXPECT_EQ(codesIn(R"({"auth": {"sso": "true", "initTimeout": "30"}})"), "value-in-quotes value-in-quotes ");
    EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": "-1.5e3"}})"), "value-in-quotes ");
    EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": "30 s"}})"), "wrong-type ");
    EXPECT_EQ(codesIn(R"({"common": {"adChoices": 30}})"), "wrong-type ");
}

TEST(FindingKind, TakesOnlyATextThatIsANumberForOneInQuotes) {
    for (const char* number : {"0", "-0", "7", "10", "-12", "0.5", "-1.25", "1e3", "1E+3", "2.5e-07", "true", "false"})
        EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": ")" + std::string(number) + "\"}}"), "value-in-quotes ")
            << number;
    for (const char* other : {"",    "-",          "+1",   "007", "-01",  "00",   "1.",    ".5",       "1.2.3",
                              "1-2", "2024-01-01", "--1",  "1e",  "1e+",  "e3",   "1e5.0", "1e5e5",    "1+1",
                              " 1",  "1 ",         "0x1f", "1,5", "True", "1.e3", "-.5",   "Infinity", "NaN"})
        EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": ")" + std::string(other) + "\"}}"), "wrong-type ") << other;
}

TEST(FindingKind, TakesALongTextForNoNumber) {
    EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": ")" + std::string(33, '1') + "\"}}"), "wrong-type ");
}

TEST(FindingKind, TellsOfNull) { EXPECT_EQ(codesIn(R"({"auth": {"sso": null}})"), "null-value "); }

TEST(FindingKind, TellsANullThatLosesMoreThanItsField) {
    EXPECT_EQ(codesIn(R"({"auth": {"preAuthChannels": null}, "groups": null, "layouts": null})"),
              "null-value null-value null-value ");
    EXPECT_EQ(codesIn(R"({"auth": {"preAuthChannels": ["a", null]}})"), "null-loss ");
    EXPECT_EQ(codesIn(R"({"groups": [{"id": "a", "title": "A"}, null]})"), "null-loss ");
    EXPECT_EQ(codesIn(R"({"groups": [{"id": "a", "title": null}]})"), "null-loss ");
    EXPECT_EQ(codesIn(R"({"webservices": {"a": {"url": null, "method": "GET"}}})"), "null-loss ");
    EXPECT_EQ(codesIn(R"({"layouts": {"home": null}})"), "null-loss ");
}

TEST(FindingKind, IsAsSevereAsItsCost) {
    const Finding harmless{"/a", "text", "null", Cost::fieldAbsent, {}},
        costly{"/a", "text", "null", Cost::listDropped, {}};
    EXPECT_EQ(kindOf(harmless).severity, Severity::warning);
    EXPECT_EQ(kindOf(costly).severity, Severity::error);
}

TEST(FindingKind, TellsOfANumberBeyond64Bits) {
    EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": 1e30}})"), "out-of-range ");
    EXPECT_EQ(codesIn(R"({"auth": {"initTimeout": 18446744073709551615}})"), "out-of-range ");
}

TEST(FindingKind, TellsOfATextThatIsNoneOfThose) {
    EXPECT_EQ(codesIn(R"({"webservices": {"a": {"url": {"value": "u"}, "method": "FETCH"}}})"), "unknown-text ");
    EXPECT_EQ(codesIn(R"({"webservices": {"a": {"url": {"value": "u"}, "method": 1}}})"), "wrong-type ");
}

TEST(FindingKind, TellsOfWhatIsMissing) {
    EXPECT_EQ(codesIn(R"({"groups": [{"id": "a"}]})"), "missing-value ");
    EXPECT_EQ(codesIn(R"({"features": {"a": {}}})"), "empty-object ");
}

TEST(FindingKind, TellsOfAMemberThatNoReaderKnows) { EXPECT_EQ(codesIn(R"({"promo": 1})"), "unknown-member "); }

TEST(FindingKind, HasACodeOfItsOwnAndAHint) {
    std::set<std::string_view> codes;
    for (const FindingKind& kind : findingKinds()) {
        EXPECT_TRUE(codes.insert(kind.code).second) << kind.code;
        EXPECT_FALSE(kind.hint.empty()) << kind.code;
    }
}

}  // namespace
}  // namespace quorin
