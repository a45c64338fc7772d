// A large document takes for each of its elements what a small one takes: counted, because a time proves nothing.
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/rx/Wait.hpp"

#include "tests/context/Testbed.hpp"
#include "tests/faults/FailingMemory.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace quorin {
namespace {

/// A document of as many elements as one likes. In `element` the sign # is a number that differs from one to the next.
struct Shape {
    std::string_view name;
    std::string_view before;
    std::string_view element;
    std::string_view behind;
    long allocations;  ///< of a load, for each element at most
    long reported;     ///< the same where a report is asked for

    std::string of(long count) const {
        std::string text(before);
        for (long i = 0; i < count; ++i) {
            std::string one(element);
            const std::string number = std::to_string(1'000'000 + i);  // all of one length
            for (auto at = one.find('#'); at != one.npos; at = one.find('#')) one.replace(at, 1, number);
            text += (i > 0 ? "," : "") + one;
        }
        return text.append(behind);
    }
};

void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }

constexpr Shape shapes[] = {
    {"features", R"({"features":{)", R"("chat#":{"enabled":true,"title":"Talk to us","rules":{"minimum":3}})", "}}", 1,
     1},
    {"services", R"({"webservices":{)",
     R"("login#":{"url":{"value":"https://h.example/{id}/login"},"method":"post","header":{"Accept":"text/xml"}})",
     "}}", 2, 20},
    {"analytics", R"({"analytics":{)", R"("suite#":{"account":"an account with a long name","id":"1","timeout":3})",
     "}}", 2, 2},
    {"layouts", R"({"layouts":{)", R"("home#":{"initialRequest":1,"paginationSize":20})", "}}", 1, 1},
    {"groups", R"({"groups":[)", R"({"id":"g#","title":"a title"})", "]}", 0, 0},
    {"brands", "{", R"("brand#":{"features":{"a":{"enabled":true}}})", "}", 0, 5},
    {"elements that are not known", R"({"unknown":[)", R"({"id":#})", "]}", 0, 0},
    {"members of one name", R"({"features":{)", R"("a":{"b":#})", "}}", 0, 0},
    {"members that are not taken", R"({"layouts":{)", R"("home#":{"initialRequest":"1"})", "}}", 1, 18},
    {"sections that are not taken", R"({"webservices":{)", R"("login#":{"method":"post"})", "}}", 0, 18},
    {"numbers that only the second parser takes", R"({"init":{},"x":[)", "{\"a\":18446744073709551616}", "]}", 0, 0},
    {"characters", R"({"common":{"privacyPolicy":")", "12345678901234567890", "\"}}", 0, 0},
};

class Growth : public testing::TestWithParam<Shape> {
protected:
    /// The second of two equal loads, so without what a first one makes once and for all.
    faults::Taken takenByLoad(long count, bool reported = false) {
        const PathURL file{bed_.folder().write("document.json", GetParam().of(count))};
        const auto load = [&] { loads_ = loads_ && rx::wait(manager_.initialize(file, arguments(reported))); };
        load();
        const faults::Taken taken = faults::takenBy(load);
        EXPECT_TRUE(loads_);
        return taken;
    }

    faults::Taken takenByEncode(long count) {
        takenByLoad(count);
        const auto configuration = manager_.configuration();
        return faults::takenBy([&] { configuration->encode(); });
    }

    static LoadArguments arguments(bool reported) { return {.deviceID = "D", .findings = reported}; }

    const Testbed bed_{};
    ConfigurationManager::Instance manager_{bed_.start()};
    bool loads_ = true;
};

constexpr long fewest = 16;
constexpr long most = 64 * fewest;

/// Of `times` as many elements, each takes no more. Of bytes half as much again, because a room that has just doubled
/// is half empty.
void expectAtMost(long times, const faults::Taken& one, const faults::Taken& all) {
    EXPECT_LE(all.allocations, times * one.allocations);
    EXPECT_LE(all.bytes, times * one.bytes * 3 / 2);
    EXPECT_LE(all.peak, times * one.peak * 3 / 2);
}

/// From step to step, so that nothing hides in between, and over all of them, so that a little does not add up.
template <class TakenBy>
void expectAtMostAsTheDocument(const TakenBy& takenBy) {
    const faults::Taken first = takenBy(fewest);
    faults::Taken half = first;
    for (long count = 2 * fewest; count <= most; count *= 2) {
        SCOPED_TRACE(count);
        const faults::Taken whole = takenBy(count);
        expectAtMost(2, half, whole);
        expectAtMost(count / fewest, first, whole);
        half = whole;
    }
}

TEST_P(Growth, OfALoadIsAtMostThatOfTheDocument) {
    expectAtMostAsTheDocument([this](long count) { return takenByLoad(count); });
}

TEST_P(Growth, OfALoadWithAReportIsAtMostThatOfTheDocument) {
    expectAtMostAsTheDocument([this](long count) { return takenByLoad(count, true); });
}

TEST_P(Growth, OfTheArchiveIsAtMostThatOfTheDocument) {
    expectAtMostAsTheDocument([this](long count) { return takenByEncode(count); });
}

TEST_P(Growth, OfALoadThatKeepsNoParserIsAtMostThatOfTheDocument) {
    const long count = (1L << 19) / static_cast<long>(GetParam().element.size());
    expectAtMost(2, takenByLoad(count), takenByLoad(2 * count));
}

TEST_P(Growth, IsAFewAllocationsForEachElement) {
    constexpr long always = 64;  // and a few that double their room
    EXPECT_LE(takenByLoad(most).allocations, always + most * GetParam().allocations);
    EXPECT_LE(takenByLoad(most, true).allocations, always + most * GetParam().reported);
}

TEST_P(Growth, HoldsAFewBytesForEachOfTheDocument) {
    const auto size = static_cast<long>(GetParam().of(most).size());
    EXPECT_LE(takenByLoad(most).peak, 16 * size);
}

INSTANTIATE_TEST_SUITE_P(Of, Growth, testing::ValuesIn(shapes), [](const auto& shape) {
    std::string name(shape.param.name);
    for (char& c : name) c = c == ' ' ? '_' : c;
    return name;
});

}  // namespace
}  // namespace quorin
