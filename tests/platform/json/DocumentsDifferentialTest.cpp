// A hundred thousand documents, each read by both of our parsers and by another one.
#include "tests/platform/json/AnyDocument.hpp"
#include "tests/platform/json/Damaged.hpp"
#include "tests/support/ParserComparison.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorin::json {
namespace {

constexpr unsigned seed = 20260101;
constexpr unsigned documents = 50'000;  // of each kind

/// Told of a document that fails: it can be made again, and seen.
std::string tale(unsigned number, const std::string& text) {
    return "document " + std::to_string(number) + " of seed " + std::to_string(seed) + ": "
           + testing::PrintToString(text);
}

Random randomFor(unsigned number) { return Random(seed + number); }

TEST(DocumentsDifferential, FiftyThousandDocumentsAreReadAlike) {
    for (unsigned number = 0; number < documents; ++number) {
        Random random = randomFor(number);
        const std::string text = anyDocument(random);
        const ParserComparison comparison(text);
        ASSERT_TRUE(comparison.isRead()) << tale(number, text);
        ASSERT_EQ(comparison.outcome(), "") << tale(number, text);
    }
}

TEST(DocumentsDifferential, FiftyThousandDamagedDocumentsAreReadOrRefusedAlike) {
    unsigned read = 0;
    for (unsigned number = documents; number < 2 * documents; ++number) {
        Random random = randomFor(number);
        std::string text = anyDocument(random);
        for (auto damages = 1 + random() % 3; damages > 0; --damages) text = damaged(std::move(text), random);
        const ParserComparison comparison(text);
        ASSERT_EQ(comparison.outcome(), "") << tale(number, text);
        read += comparison.isRead();
    }
    EXPECT_GT(read, documents / 10);
    EXPECT_LT(read, documents / 2);
}

}  // namespace
}  // namespace quorin::json
