#include "quorin/facade/c/quorin.h"

#include "tests/facade/c/InstalledHost.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>

namespace {

/// How many allocations of this thread succeed before one fails; negative: all do.
thread_local long untilFailure = -1;

}  // namespace

void* operator new(std::size_t size) {
    const bool fails = untilFailure == 0;
    if (untilFailure >= 0) --untilFailure;
    void* const memory = fails ? nullptr : std::malloc(size > 0 ? size : 1);
    if (!memory) throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace quorin {
namespace {

/// Calls again and again, each time with a later allocation failing, until none does. Every failure has to leave
/// `handle` at none; yields how many there were.
int failures(quorin_handle& handle, const std::function<quorin_status()>& call) {
    for (int count = 0;; ++count) {
        untilFailure = count;
        const quorin_status status = call();
        const bool hasFailed = untilFailure < 0;
        untilFailure = -1;
        if (!hasFailed) {
            EXPECT_EQ(status, QUORIN_OK);
            return count;
        }
        EXPECT_EQ(status, QUORIN_NO_MEMORY) << "allocation " << count;
        EXPECT_EQ(handle, quorin_handle{QUORIN_NONE}) << "allocation " << count;
    }
}

TEST(Memory, ThatIsMissingMakesNoObject) {
    const std::string text(100, 'x');
    quorin_handle bind = QUORIN_NONE;
    EXPECT_GT(failures(bind,
                       [&] {
                           return quorin_anonymous_bind_make(quorin_text_of(text.c_str()), quorin_text_of(text.c_str()),
                                                             &bind);
                       }),
              2);
    quorin_release(bind);
}

TEST(Memory, ThatIsMissingLeavesARequestAsItWas) {
    const std::string text(100, 'x');
    quorin_handle request = QUORIN_NONE, none = QUORIN_NONE;
    quorin_request_create(QUORIN_HTTP_METHOD_GET, quorin_text_of("http://h.example/"), &request);
    EXPECT_GT(failures(none,
                       [&] {
                           return quorin_request_set_header(request, quorin_text_of(text.c_str()),
                                                            quorin_text_of(text.c_str()));
                       }),
              2);
    quorin_release(request);
}

TEST_F(Host, HasNoSubscriptionWhereMemoryForItIsMissing) {
    EXPECT_EQ(inHost([](const App&) {
                  const quorin_handlers handlers{};
                  quorin_handle stream = QUORIN_NONE, subscription = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  const int count = failures(subscription, [&] {
                      return quorin_observable_subscribe(stream, &handlers, nullptr, &subscription);
                  });
                  const bool held = !testing::Test::HasFailure() && subscription != QUORIN_NONE;
                  return std::string(held && count > 5 ? "none" : "some");
              }),
              "none");
}

TEST_F(Host, IsToldThatItsPointerIsNotNeededWhereMemoryIsMissingAtOnce) {
    EXPECT_EQ(inHost([](const App&) {
                  int released = 0;
                  const quorin_handlers handlers{nullptr, nullptr, nullptr,
                                                 [](void* user) { ++*static_cast<int*>(user); }};
                  quorin_handle stream = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  untilFailure = 0;
                  const auto status = quorin_observable_subscribe(stream, &handlers, &released, nullptr);
                  return std::string(quorin_status_name(status)) + ' ' + std::to_string(released);
              }),
              "QUORIN_NO_MEMORY 1");
}

}  // namespace
}  // namespace quorin
