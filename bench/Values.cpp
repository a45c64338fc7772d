// Writing and comparing whole configurations, against the same on a general JSON tree.
#include "quorin/platform/json/Parse.hpp"

#include "bench/Competitors.hpp"
#include "bench/Documents.hpp"
#include "bench/Rows.hpp"

namespace quorin::bench {
namespace {

Configuration configuration() {
    const auto document = *json::parse(largeDocument()).value()->asObject();
    return *Configuration::fromJSON(*document.find("orvel")->asObject());
}

}  // namespace

Rows valueRows() {
    const Configuration first = configuration();
    const Configuration second = configuration();
    const GeneralTree theirs = GeneralTree::of(first.encode());
    add("encode", [first] { return first.encode(); });
    add("encode-tree", [archive = first.encode()] { return GeneralTree::of(archive); });
    add("equal", [first, second] { return first == second; });
    add("equal-tree", [theirs, same = GeneralTree::of(second.encode())] { return theirs == same; });
    return {
        {"encode() of a whole configuration / building a tree", "encode", "encode-tree", 0.5, 0.2},
        {"== of whole configurations / comparing trees", "equal", "equal-tree", 0.5, 0.2},
    };
}

}  // namespace quorin::bench
