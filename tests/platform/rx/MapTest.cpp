#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Map.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace quorin::rx {
namespace {

Result<int> halved(int value) {
    if (value % 2 != 0) return Broken{value};
    return value / 2;
}

TEST(Map, DeliversWhatTheFunctionMakesOfEachValue) {
    Log log;
    map(just(4), [](int value) { return value + 1; }).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a5", "a."}));
}

TEST(Map, MayChangeTheType) {
    std::string text;
    const Observable<std::string> texts = map(just(4), [](const int& value) { return std::to_string(value); });
    texts.subscribe({.next = [&](const std::string& value) { text = value; }});
    EXPECT_EQ(text, "4");
}

TEST(Map, TakesTheValueOutOfAResult) {
    Log log;
    map(just(4), halved).subscribe(into(log, "a"));
    EXPECT_EQ(log, (Log{"a2", "a."}));
}

TEST(Map, EndsWithTheErrorOfAFailedResult) {
    Log log;
    Variable<int> cell(2);
    map(cell.asObservable(), halved).subscribe(into(log, "a"));
    cell.assign(3);
    cell.assign(4);
    EXPECT_EQ(log, (Log{"a1", "a!"}));
}

TEST(Map, CallsTheFunctionNoMoreOnceItFailed) {
    int calls = 0;
    const Observable<int> three([](const Observer<int>& observer) {
        for (const int value : {1, 2, 3}) observer.next(value);
        return Disposable();
    });
    map(three, [&](int) -> Result<int> {
        ++calls;
        return Broken{};
    }).subscribe(Handlers<int>{});
    EXPECT_EQ(calls, 1);
}

TEST(Map, DisposesWhatIsUpstreamOnceItFailed) {
    const Disposable upstream([] {});
    const Observable<int> one([&](const Observer<int>& observer) {
        observer.next(1);
        return upstream;
    });
    map(one, halved).subscribe(Handlers<int>{});
    EXPECT_TRUE(upstream.isDisposed());
}

TEST(Map, PassesAnErrorOn) {
    int code = 0;
    map(error<int>(Broken{6}), halved).subscribe({.error = [&](const Error& e) { code = e.as<Broken>()->code; }});
    EXPECT_EQ(code, 6);
}

TEST(MapDeathTest, EndsTheProcessWhenTheFunctionThrows) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto stream = map(just(1), [](int) -> int { throw std::runtime_error("thrown by a function"); });
    const auto deliver = [&] {
        try {
            stream.subscribe(Handlers<int>{});
        } catch (...) {
        }
    };
    EXPECT_DEATH(deliver(), "thrown by a function");
}

}  // namespace
}  // namespace quorin::rx
