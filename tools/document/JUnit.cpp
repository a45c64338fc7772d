#include "CheckFormat.hpp"
#include "HTML.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

/// `text` so that it stands for itself in an attribute: what no XML text may
/// hold (XML 1.0, section 2.2) becomes "?".
std::string quoted(std::string_view text) {
    std::string plain(text);
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }, '?');
    return "\"" + escapedHTML(plain) + "\"";
}

std::string testCase(const std::string& source, const Diagnosis& one) {
    const json::Position place = one.position.value_or(json::Position{});
    const std::string at = source + ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
    return "    <testcase classname=" + quoted(one.kind.code) + " name=" + quoted(one.pointer)
           + " file=" + quoted(source) + " line=\"" + std::to_string(place.line)
           + "\">\n      <failure type=" + quoted(nameOf(one.kind.severity))
           + " message=" + quoted(at + ": " + one.words() + "; " + one.hint()) + "/>\n    </testcase>\n";
}

std::string suite(const CheckedSource& source, Severity level) {
    std::string cases;
    std::size_t failures = 0;
    for (const Diagnosis& one : source.checked.diagnoses) {
        if (one.kind.severity < level) continue;
        cases += testCase(source.name, one);
        ++failures;
    }
    if (failures == 0) cases = "    <testcase classname=\"quorin\" name=\"check\"/>\n";
    return "  <testsuite name=" + quoted(source.name) + " tests=\"" + std::to_string(std::max<std::size_t>(failures, 1))
           + "\" failures=\"" + std::to_string(failures) + "\">\n" + cases + "  </testsuite>\n";
}

}  // namespace

std::string junit(std::span<const CheckedSource> sources, Severity level) {
    std::string suites;
    for (const CheckedSource& source : sources) suites += suite(source, level);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n" + suites + "</testsuites>\n";
}

}  // namespace quorin::document
