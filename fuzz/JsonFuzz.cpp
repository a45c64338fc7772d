// Any bytes as a JSON text: our parsers and another one agree on the verdict and on the tree, and what is printed is
// read back equal.
#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"

#include "fuzz/Fuzz.hpp"
#include "tests/support/ParserComparison.hpp"

namespace quorin::fuzz {
namespace {

void checkPrinted(const json::Value& value) {
    for (const auto layout : {json::Layout::compact, json::Layout::indented}) {
        const std::string text = json::print(value, layout);
        const auto again = json::parse(text);
        require(again.value() && *again.value() == value, "what is printed is read back equal");
        require(json::print(*again.value(), layout) == text, "what is read back is printed alike");
    }
}

void check(const std::string& text) {
    const std::string outcome = json::ParserComparison(text).outcome();
    require(outcome.empty(), outcome.c_str());
    const auto parsed = json::parse(text);
    if (parsed.value()) checkPrinted(*parsed.value());
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    quorin::fuzz::check(std::string(quorin::fuzz::textOf(bytes, size)));
    return 0;
}
