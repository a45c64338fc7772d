#include "quorin/model/Configuration.hpp"
#include "quorin/table/ReadReport.hpp"

#include "tests/table/Documents.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quorin {
namespace {

using testing::ElementsAre;

std::vector<Finding> findingsIn(std::string_view document) { return reportOf<Configuration>(document).findings; }

TEST(ReadReport, IsEmptyWhenEverythingIsTaken) {
    EXPECT_EQ(reportOf<Configuration>(R"({"groups": [{"id": "g", "title": "t"}], "profile": {"limit": 5}})"),
              ReadReport{});
}

TEST(ReadReport, TellsAFieldThatIsAbsent) {
    EXPECT_THAT(findingsIn(R"({"videoPlayer": {"ads": {"freeTime": "600"}}})"),
                ElementsAre(Finding{"/videoPlayer/ads/freeTime", "integer", "value in quotes", Cost::fieldAbsent}));
}

TEST(ReadReport, TellsNull) {
    EXPECT_THAT(findingsIn(R"({"common": {"termsOfUse": null}, "auth": null})"),
                ElementsAre(Finding{"/common/termsOfUse", "string", "null", Cost::fieldAbsent},
                            Finding{"/auth", "object", "null", Cost::fieldAbsent}));
}

TEST(ReadReport, TellsADefaultThatIsUsed) {
    EXPECT_THAT(
        findingsIn(R"({"webservices": {"a": {"url": {"value": "u"}, "method": "GET",
                               "header": {"Content-Type": "text/html"}}}})"),
        ElementsAre(Finding{"/webservices/a/header/Content-Type", "media type", "other text", Cost::defaultUsed}));
}

TEST(ReadReport, TellsAnElementThatIsDropped) {
    EXPECT_THAT(findingsIn(R"({"groups": [{"id": "a", "title": "A"}, {"id": "b"}, {"id": 3, "title": "C"}]})"),
                ElementsAre(Finding{"/groups/1/title", "string", "nothing", Cost::elementDropped},
                            Finding{"/groups/2/id", "string", "number", Cost::elementDropped}));
}

TEST(ReadReport, TellsAnEntryThatIsDropped) {
    EXPECT_THAT(
        findingsIn(
            R"({"features": {"a": {}}, "webservices": {"b": {"url": "u", "method": "GET"}}, "layouts": {"c": 1}})"),
        ElementsAre(Finding{"/features/a", "members", "nothing", Cost::entryDropped},
                    Finding{"/webservices/b/url", "object", "string", Cost::entryDropped},
                    Finding{"/layouts/c", "object", "number", Cost::entryDropped}));
}

TEST(ReadReport, TellsAWholeListThatIsDropped) {
    EXPECT_THAT(findingsIn(R"({"groups": [{"id": "a", "title": "A"}, "b"], "auth": {"preAuthChannels": ["a", true]}})"),
                ElementsAre(Finding{"/groups/1", "object", "string", Cost::listDropped},
                            Finding{"/auth/preAuthChannels/1", "string", "boolean", Cost::listDropped}));
}

TEST(ReadReport, TellsAWholeMapThatIsDropped) {
    EXPECT_THAT(findingsIn(R"({"analytics": {"a": {}, "b": []}})"),
                ElementsAre(Finding{"/analytics/b", "object", "list", Cost::mapDropped}));
}

TEST(ReadReport, TellsThatNothingWasRead) {
    EXPECT_THAT(reportOf<Group>(R"({"id": "a"})").findings,
                ElementsAre(Finding{"/title", "string", "nothing", Cost::nothingRead}));
    EXPECT_THAT(reportOf<Feature>("{}").findings, ElementsAre(Finding{"", "members", "nothing", Cost::nothingRead}));
}

TEST(ReadReport, TellsMembersThatNoReaderAsksFor) {
    EXPECT_THAT(findingsIn(R"({"promo": {"a": 1}, "brand": "orvel", "profile": {"Limit": 5}})"),
                ElementsAre(Finding{"/profile/Limit", "nothing", "number", Cost::notAsked},
                            Finding{"/promo", "nothing", "object", Cost::notAsked},
                            Finding{"/brand", "nothing", "string", Cost::notAsked}));
}

TEST(ReadReport, TellsMembersOfAnInnerObjectThatNoReaderAsksFor) {
    EXPECT_THAT(findingsIn(R"({"application": {"version": {"latest": "1", "oldest": "0"}}})"),
                ElementsAre(Finding{"/application/version/oldest", "nothing", "string", Cost::notAsked}));
}

TEST(ReadReport, TellsNothingOfWhatStandsInsideAFeature) {
    EXPECT_TRUE(findingsIn(R"({"features": {"chat": {"any": {"thing": [null]}}}})").empty());
}

TEST(ReadReport, TellsTheShapeThatEachFieldExpects) {
    EXPECT_THAT(findingsIn(R"({"groups": {}, "analytics": [], "auth": {"sso": "x", "preAuthChannels": 1}})"),
                ElementsAre(Finding{"/groups", "list of objects", "object", Cost::fieldAbsent},
                            Finding{"/analytics", "object of objects", "list", Cost::fieldAbsent},
                            Finding{"/auth/sso", "boolean", "string", Cost::fieldAbsent},
                            Finding{"/auth/preAuthChannels", "list of strings", "number", Cost::fieldAbsent}));
}

TEST(ReadReport, TellsAMethodThatIsNone) {
    EXPECT_THAT(reportOf<WebService>(R"({"name": "a", "url": {"value": "u"}, "method": "FETCH"})").findings,
                ElementsAre(Finding{"/method", "HTTP method", "other text", Cost::nothingRead}));
}

TEST(ReadReport, EscapesNamesInPointers) {
    EXPECT_THAT(findingsIn(R"({"layouts": {"a/b~c": {"paginationSize": "x"}, "": {"paginationSize": "x"}}})"),
                ElementsAre(Finding{"/layouts/a~1b~0c/paginationSize", "integer", "string", Cost::fieldAbsent},
                            Finding{"/layouts//paginationSize", "integer", "string", Cost::fieldAbsent}));
}

TEST(ReadReport, TellsOfArchivesToo) {
    ReadReport report;
    WebService::fromEncoded(object(R"({"name": "a", "url": "u", "method": "get", "Content-Type": "application/json"})"),
                            &report);
    EXPECT_THAT(report.findings, ElementsAre(Finding{"/method", "HTTP method", "other text", Cost::nothingRead}));
}

TEST(ReadReport, CollectsWhatSeveralReadsTell) {
    ReadReport report;
    Profile::fromJSON(object(R"({"limit": "5"})"), &report);
    Group::fromJSON(object("{}"), &report);
    EXPECT_EQ(report.findings.size(), 2u);
}

TEST(ReadReport, HoldsTenThousandFindingsAndCountsTheOthers) {
    std::string members;
    for (int i = 0; i < 10'005; ++i) members += (i > 0 ? ",\"" : "\"") + std::to_string(i) + "\":1";
    const ReadReport report = reportOf<Profile>("{" + members + "}");
    EXPECT_EQ(report.findings.size(), 10'000u);
    EXPECT_EQ(report.omitted, 5u);
}

TEST(ReadReport, HoldsPointersOfFourMebibytesAndCountsTheOthers) {
    std::string members;
    for (char name = 'a'; name <= 'e'; ++name) members += "\"" + std::string(1 << 20, name) + "\":1,";
    const ReadReport report = reportOf<Profile>("{" + members + R"("short": 1})");
    EXPECT_EQ(report.findings.size(), 4u);
    EXPECT_EQ(report.omitted, 2u);
}

TEST(ReadReport, IsDoneAtOnceForManyMembersUnderAHugeName) {
    std::string members = R"("url": {"value": "u"}, "method": "GET")";
    for (int i = 0; i < 2000; ++i) members += ",\"" + std::to_string(i) + "\":1";
    const std::string name(1 << 20, 'n');
    const ReadReport report = reportOf<Configuration>(R"({"webservices": {")" + name + "\": {" + members + "}}}");
    EXPECT_EQ(report.findings.size() + report.omitted, 2000u);
}

TEST(ReadReport, TellsOnceWhatTwoFieldsInARowLose) {
    const ReadReport report = reportOf<ApplicationData>(R"({"version": "3.2"})");
    EXPECT_THAT(report.findings, ElementsAre(Finding{"/version", "object", "string", Cost::fieldAbsent}));
}

TEST(ReadReport, EqualsOneWithTheSameFindings) {
    const ReadReport report = reportOf<Profile>(R"({"limit": "5"})");
    ReadReport copied;
    copied.findings = report.findings;
    EXPECT_EQ(report, copied);
}

TEST(ReadReport, NamesEveryCostInWords) {
    EXPECT_EQ(nameOf(Cost::fieldAbsent), "field absent");
    EXPECT_EQ(nameOf(Cost::defaultUsed), "default used");
    EXPECT_EQ(nameOf(Cost::elementDropped), "element dropped");
    EXPECT_EQ(nameOf(Cost::entryDropped), "entry dropped");
    EXPECT_EQ(nameOf(Cost::listDropped), "whole list dropped");
    EXPECT_EQ(nameOf(Cost::mapDropped), "whole map dropped");
    EXPECT_EQ(nameOf(Cost::nothingRead), "nothing read");
    EXPECT_EQ(nameOf(Cost::notAsked), "no reader asks for it");
}

}  // namespace
}  // namespace quorin
