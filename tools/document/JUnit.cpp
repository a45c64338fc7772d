#include "CheckFormat.hpp"
#include "HTML.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quorin::document {
namespace {

/// The two characters that a line may hold and no XML text (XML 1.0, section 2.2) become a replacement character, as
/// all that is no text does.
std::string quoted(std::string text) {
    for (const std::string_view none : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"}) {
        for (auto at = text.find(none); at != text.npos; at = text.find(none, at))
            text.replace(at, none.size(), "\xEF\xBF\xBD");
    }
    return "\"" + escapedHTML(text) + "\"";
}

void takeCase(const std::string& source, const Diagnosis& one, const LineTaker& take) {
    const json::Position place = one.position.value_or(json::Position{});
    const std::string line = std::to_string(place.line);
    const std::string at = source + ":" + line + ":" + std::to_string(place.column);
    take("    <testcase classname=" + quoted(std::string(one.kind.code)) + " name=" + quoted(one.pointer)
         + " file=" + quoted(source) + " line=\"" + line + "\">");
    take("      <failure type=" + quoted(std::string(nameOf(one.kind.severity)))
         + " message=" + quoted(at + ": " + one.words() + "; " + one.hint()) + "/>");
    take("    </testcase>");
}

void takeSuite(const CheckedSource& source, Severity level, const LineTaker& take) {
    const auto counts = [&](const Diagnosis& one) { return one.kind.severity >= level; };
    const auto& all = source.checked.diagnoses;
    const auto failures = std::count_if(all.begin(), all.end(), counts);
    take("  <testsuite name=" + quoted(source.name) + " tests=\""
         + std::to_string(std::max<std::ptrdiff_t>(failures, 1)) + "\" failures=\"" + std::to_string(failures) + "\">");
    for (const Diagnosis& one : all) {
        if (counts(one)) takeCase(source.name, one, take);
    }
    if (failures == 0) take("    <testcase classname=\"quorin\" name=\"check\"/>");
    take("  </testsuite>");
}

}  // namespace

void junitLines(std::span<const CheckedSource> sources, Severity level, const LineTaker& take) {
    take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    take("<testsuites>");
    for (const CheckedSource& source : sources) takeSuite(source, level, take);
    take("</testsuites>");
}

}  // namespace quorin::document
