#include "quorin/platform/morr/UnchangingURI.hpp"

#include <gtest/gtest.h>

namespace quorin::morr {
namespace {

TEST(UnchangingURI, HidesWhatHasAMeaningInAURI) {
    EXPECT_EQ(unchangingURI("/a b/c?d#e%f.db"), "file:/a%20b/c%3Fd%23e%25f%2Edb?immutable=1");
    EXPECT_EQ(unchangingURI("/\xff"), "file:/%FF?immutable=1");
}

}  // namespace
}  // namespace quorin::morr
