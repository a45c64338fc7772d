// XML bodies as two readers see them: one that is fast and lax, and one that refuses all that is not well-formed.
#include "quorin/platform/skell/XMLBody.hpp"

#include "tests/platform/json/AnyValue.hpp"
#include "tests/support/Command.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::skell {
namespace {

using json::DocumentMap;
using json::Value;
using Texts = std::vector<std::string>;

/// Of the characters that are generated, the two that XML does not know.
std::string known(std::string_view text) {
    std::string result;
    for (const char c : text) c == '\0' || c == '\x01' ? result += "\xEF\xBF\xBD" : result += c;
    return result;
}

std::string textOf(const Value& scalar) {
    if (scalar.kind() == json::Kind::null) return "";
    return scalar.asString() ? known(*scalar.asString()) : json::print(scalar);
}

/// The elements that an element with `value` has inside, as values.
std::vector<Value> inside(const Value& value) {
    std::vector<Value> found;
    const auto add = [&](const Value& member) {
        if (const auto list = member.asList()) {
            for (std::size_t i = 0; i < list->size(); ++i) found.push_back((*list)[i]);
        } else {
            found.push_back(member);
        }
    };
    if (const auto map = value.asObject()) {
        std::map<std::string_view, Value> sorted;
        for (const auto& [name, member] : *map) sorted.emplace(name, member);
        for (const auto& [name, member] : sorted) add(member);
    } else if (value.asList()) {
        add(value);
    }
    return found;
}

/// The texts of all elements without elements inside, in document order.
void addTexts(Texts& texts, const Value& value) {
    const std::vector<Value> elements = inside(value);
    for (const Value& element : elements) addTexts(texts, element);
    const bool isScalar = !value.asObject() && !value.asList();
    if (elements.empty()) texts.push_back(isScalar ? textOf(value) : "");
}

void addTexts(Texts& texts, const pugi::xml_node& node) {
    const auto isElement = [](const pugi::xml_node& child) { return child.type() == pugi::node_element; };
    const auto elements = node.children();
    if (std::none_of(elements.begin(), elements.end(), isElement))
        return texts.emplace_back(node.child_value()), void();
    for (const pugi::xml_node& child : elements) addTexts(texts, child);
}

template <class Tree>
Texts textsOf(const Tree& tree) {
    Texts texts;
    addTexts(texts, tree);
    return texts;
}

RC_GTEST_PROP(XMLBody, IsReadBackAsTheTextsItWasMadeOf, (const Value& value, const Value& other)) {
    const DocumentMap content{{"b c", value}, {"a", other}};
    const std::string text = xmlBody(content);
    pugi::xml_document document;
    RC_ASSERT(document.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata));
    RC_ASSERT(textsOf(document.child("request")) == textsOf(Value(content)));
}

constexpr std::string_view reader = R"(
import json, sys
from xml.etree import ElementTree
count = 0
for line in open(sys.argv[1], encoding="utf-8", newline="\n"):
    case = json.loads(line)
    root = ElementTree.fromstring(case["xml"].encode("utf-8"))
    assert [e.text or "" for e in root.iter() if len(e) == 0] == case["texts"], line
    names = [e.get("name") for e in root.iter("member") if e.get("name") is not None]
    assert case["name"] in names or not case["named"], line
    count += 1
print(count, end="")
)";

/// One line for the reader: a body, and what is to be read of it. The names are those that an older edition of XML
/// knows too.
std::string lineFor(const Value& value, const std::string& name) {
    const DocumentMap content{{"1" + name, value}, {"a", 1}};
    std::vector<Value> texts;
    for (const std::string& text : textsOf(Value(content))) texts.emplace_back(text);
    return json::print(DocumentMap{{"xml", xmlBody(content)},
                                   {"texts", json::List(texts)},
                                   {"name", "1" + known(name)},
                                   {"named", !inside(value).empty() || !value.asList()}})
           + "\n";
}

TEST(XMLBody, IsWellFormedForAStrictReader) {
    const auto names = rc::gen::element<std::string>("a", "_b", "c-1", "\xC3\xA9", "1", "a b", "a:b", "<", "&\"", "\n");
    std::string lines;
    const auto isCollected = rc::check("collect bodies", [&] {
        const std::string piece = *rc::gen::element<std::string>("", "\r", "\n", "\t", "<", "]]>", "\x01", "\xC2\x85");
        lines += lineFor(*json::anyValue(names, 4), *json::anyText() + piece);
        lines += lineFor(Value(*json::anyText() + piece + "."), "b");
    });
    ASSERT_TRUE(isCollected);
    const support::TemporaryFolder folder;
    const std::string script = folder.write("reader.py", reader);
    const auto count = std::count(lines.begin(), lines.end(), '\n');
    EXPECT_EQ(support::outputOf("python3 -B " + script + " " + folder.write("bodies", lines)), std::to_string(count));
}

}  // namespace
}  // namespace quorin::skell
