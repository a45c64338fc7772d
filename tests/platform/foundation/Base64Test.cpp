#include "quorin/platform/foundation/Base64.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace quorin::foundation {
namespace {

TEST(Base64, IsThatOfTheStandard) {
    const std::vector<std::pair<std::string, std::string>> rows{{"", ""},
                                                                {"f", "Zg=="},
                                                                {"fo", "Zm8="},
                                                                {"foo", "Zm9v"},
                                                                {"foob", "Zm9vYg=="},
                                                                {"fooba", "Zm9vYmE="},
                                                                {"foobar", "Zm9vYmFy"},
                                                                {std::string("\0\xff", 2), "AP8="}};
    for (const auto& [bytes, text] : rows) EXPECT_EQ(base64(bytes), text);
}

TEST(Base64, OfManyBytesIsPaddedAtItsEndAlone) {
    const std::string text = base64(std::string(7 << 20, 'a'));
    EXPECT_EQ(text.size(), ((7U << 20U) + 2) / 3 * 4);
    EXPECT_EQ(text.find('='), text.size() - 2);
}

}  // namespace
}  // namespace quorin::foundation
