#include "quorin/platform/foundation/SHA256.hpp"

#include <gtest/gtest.h>

namespace quorin::foundation {
namespace {

TEST(SHA256, OfKnownTextsIsKnown) {
    EXPECT_EQ(sha256Hex(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256Hex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256Hex(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(SHA256, CountsEveryByte) {
    EXPECT_EQ(sha256Hex(std::string_view("\0", 1)), "6e340b9cffb37a989ca544e6bb780a2c78901d3fb33738768511a30617afa01d");
    EXPECT_NE(sha256Hex(std::string_view("a\0b", 3)), sha256Hex(std::string_view("a\0c", 3)));
    EXPECT_EQ(sha256Hex(std::string_view()), sha256Hex(""));
}

}  // namespace
}  // namespace quorin::foundation
