#include "quorin/core/BrandSection.hpp"
#include "quorin/platform/json/Parse.hpp"

#include "bench/Competitors.hpp"
#include "bench/Documents.hpp"
#include "bench/Ours.hpp"
#include "bench/Rows.hpp"
#include "tools/document/BrandViews.hpp"
#include "tools/document/Check.hpp"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>

namespace quorin::bench {
namespace {

/// The text with the room behind it that a file or a response is read with.
const std::string& padded(const std::string& document) {
    static auto& copies = *new std::map<std::string, std::string>;
    auto& copy = copies[document];
    if (copy.empty()) (copy = document).reserve(document.size() + json::parsePadding);
    return copy;
}

json::ParseResult parse(const std::string& text) { return json::parse(text, text.capacity() - text.size()); }

Configuration read(const DocumentMap& section, ReadReport* report) { return *Configuration::fromJSON(section, report); }

/// What a load is without the report that it leaves.
std::shared_ptr<const Configuration> loadUntold(const std::string& text) {
    const auto parsed = parse(text);
    const BrandSection section = BrandSection::of(*parsed.value()->asObject(), Brand::orvel);
    Configuration configuration = read(section.map, nullptr);
    configuration.brand = Brand::orvel;
    configuration.device = "D";
    configuration.version = "1.0.0";
    return std::make_shared<const Configuration>(std::move(configuration));
}

/// The two loads must yield the same, or their ratio says nothing.
void compareResults() {
    Configuration ours = *load(padded(largeDocument()));
    ours.brand.reset();
    ours.device.reset();
    ours.version.reset();
    if (ours == loadByHand(largeDocument(), "orvel")) return;
    std::fputs("the hand-written load reads something else: the bench is broken\n", stderr);
    std::exit(1);
}

}  // namespace

Rows loadingRows() {
    compareResults();
    const std::string& small = padded(smallDocument());
    const std::string& large = padded(largeDocument());
    const std::string& huge = padded(hugeDocument());
    for (const auto& [size, text] :
         {std::pair<std::string, const std::string&>{"small", small}, {"large", large}, {"huge", huge}}) {
        add("dom-" + size, [&text = text] { return parseWithDOM(text); });
        add("parse-" + size, [&text = text] { return parse(text); });
        add("load-" + size, [&text = text] { return load(text); });
    }
    add("hand-large", [&large] { return loadByHand(large, "orvel"); });
    const DocumentMap section = *parse(large).value()->asObject()->find("orvel")->asObject();
    add("read", [section] { return read(section, nullptr); });
    add("read-observed", [section] {
        ReadReport report;
        return read(section, &report);
    });
    add("load-found", [&large] { return load(large, true); });
    add("load-untold", [&large] { return loadUntold(large); });
    add("check", [&large] {
        const auto parsed = parse(large);
        return document::check(*parsed.value()->asObject(), large, document::allBrands());
    });
    return {
        {"parse into our own tree, small / dom", "parse-small", "dom-small", 3, 1.6},
        {"parse into our own tree, large / dom", "parse-large", "dom-large", 2.5, 1.5},
        {"full typed load, small / dom", "load-small", "dom-small", 7, 3},
        {"full typed load, large / dom", "load-large", "dom-large", 3.5, 1.6},
        {"full typed load, large / by hand on a tree", "load-large", "hand-large", 0.16, 0.07},
        {"parse into our own tree, huge / dom", "parse-huge", "dom-huge"},
        {"full typed load, huge / dom", "load-huge", "dom-huge"},
        {"read without an observer / with one", "read", "read-observed", 1, 0.9},
        {"load with its report, large / without any", "load-large", "load-untold", 1.1, 1.02},
        {"load with findings, large / without them", "load-found", "load-large", 2, 1.5},
        {"check for all brands, large / one load", "check", "load-large", 50, 20},
    };
}

}  // namespace quorin::bench
