#include "quorin/platform/skell/XMLBody.hpp"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <string>
#include <string_view>

namespace quorin::skell {
namespace {

using json::DocumentMap;
using json::List;

constexpr std::string_view replaced = "\xEF\xBF\xBD";

std::string inRequest(std::string_view elements) { return "<request>" + std::string(elements) + "</request>"; }

TEST(XMLBody, HasAnElementForEachMemberInByteOrder) {
    EXPECT_EQ(xmlBody({{"b", "2"}, {"a", "1"}, {"B", "3"}}), "<request><B>3</B><a>1</a><b>2</b></request>");
    EXPECT_EQ(xmlBody({}), "<request/>");
}

TEST(XMLBody, WritesScalarsAsJSONDoesAndNullAsAnEmptyElement) {
    EXPECT_EQ(xmlBody({{"a", true}, {"b", false}, {"c", nullptr}, {"d", ""}}),
              inRequest("<a>true</a><b>false</b><c/><d></d>"));
    EXPECT_EQ(xmlBody({{"a", -7}, {"b", 1.0}, {"c", 1e21}, {"d", 18446744073709551615U}}),
              inRequest("<a>-7</a><b>1</b><c>1e+21</c><d>18446744073709551615</d>"));
}

TEST(XMLBody, NestsTheElementsOfAMap) {
    EXPECT_EQ(xmlBody({{"a", DocumentMap{{"c", 2}, {"b", 1}}}}), inRequest("<a><b>1</b><c>2</c></a>"));
    EXPECT_EQ(xmlBody({{"a", DocumentMap{}}}), inRequest("<a/>"));
}

TEST(XMLBody, RepeatsTheElementOfAList) {
    EXPECT_EQ(xmlBody({{"a", List{1, nullptr, DocumentMap{{"b", 2}}}}}), inRequest("<a>1</a><a/><a><b>2</b></a>"));
    EXPECT_EQ(xmlBody({{"a", List{}}, {"b", 1}}), inRequest("<b>1</b>"));
}

TEST(XMLBody, WrapsAListInsideAList) {
    EXPECT_EQ(xmlBody({{"a", List{List{1, 2}, List{}, List{3}}}}),
              inRequest("<a><a>1</a><a>2</a></a><a/><a><a>3</a></a>"));
}

TEST(XMLBody, EscapesMarkup) {
    EXPECT_EQ(xmlBody({{"a", "<&>\"']]>"}}), inRequest("<a>&lt;&amp;&gt;\"']]&gt;</a>"));
    EXPECT_EQ(xmlBody({{"<&>\"'", 1}}), inRequest("<member name=\"&lt;&amp;>&quot;'\">1</member>"));
}

TEST(XMLBody, KeepsTextAsItIs) {
    EXPECT_EQ(xmlBody({{"a", " \t\n "}, {"b", "\xC3\xA9\xF0\x9F\x98\x80\x7F"}}),
              inRequest("<a> \t\n </a><b>\xC3\xA9\xF0\x9F\x98\x80\x7F</b>"));
}

TEST(XMLBody, WritesAsReferencesWhatAReaderWouldChange) {
    EXPECT_EQ(xmlBody({{"a", "1\r\n2\r"}}), inRequest("<a>1&#13;\n2&#13;</a>"));
    EXPECT_EQ(xmlBody({{"\t\r\n", 1}}), inRequest("<member name=\"&#09;&#13;&#10;\">1</member>"));
}

TEST(XMLBody, ReplacesWhatNoDocumentCanHold) {
    for (const std::string_view bad : {std::string_view("\0", 1), std::string_view("\x01"), std::string_view("\x1F"),
                                       std::string_view("\xEF\xBF\xBE"), std::string_view("\xEF\xBF\xBF"),
                                       std::string_view("\xFF"), std::string_view("\xC3")}) {
        EXPECT_EQ(xmlBody({{"a", "x" + std::string(bad) + "y"}}), inRequest("<a>x" + std::string(replaced) + "y</a>"));
        EXPECT_EQ(xmlBody({{bad, 1}}), inRequest("<member name=\"" + std::string(replaced) + "\">1</member>"));
    }
}

TEST(XMLBody, NamesInAnAttributeWhatIsNoXMLName) {
    for (const std::string name : {"", "1a", "-a", ".a", "a b", "a:b", ":", "a/b", "\xC3\x97", "\xC2\xB7"}) {
        EXPECT_EQ(xmlBody({{name, 1}}), inRequest("<member name=\"" + name + "\">1</member>"));
    }
    EXPECT_EQ(
        xmlBody({{"a b", List{1, List{2}}}}),
        inRequest("<member name=\"a b\">1</member><member name=\"a b\"><member name=\"a b\">2</member></member>"));
}

TEST(XMLBody, TakesEveryXMLNameForAnElement) {
    for (const std::string name : {"a", "_", "a-1.b", "xml", "member", "\xC3\xA9", "a\xC2\xB7", "\xE6\x97\xA5",
                                   "\xF0\x90\x80\x80", "a\xCC\x80"}) {
        EXPECT_EQ(xmlBody({{name, 1}}), inRequest("<" + name + ">1</" + name + ">"));
    }
}

TEST(XMLBody, IsWrittenToTheDeepestLevel) {
    json::Value deepest = "end";
    for (int i = 0; i < 1000; ++i) deepest = DocumentMap{{"a", deepest}};
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(xmlBody({{"a", deepest}}).c_str()));
    pugi::xml_node node = document.child("request");
    for (int i = 0; i < 1001; ++i) node = node.child("a");
    EXPECT_STREQ(node.child_value(), "end");
}

}  // namespace
}  // namespace quorin::skell
