#include "quorin/facade/c/quorin.h"

#include "tests/facade/c/InstalledHost.hpp"
#include "tests/faults/FailingMemory.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace quorin {
namespace {

/// Calls again and again, each time with a later allocation failing, until none does. Every failure has to leave
/// `handle` at none; yields how many there were.
int failures(quorin_handle& handle, const std::function<quorin_status()>& call) {
    for (int count = 0;; ++count) {
        faults::failAfter(count);
        const quorin_status status = call();
        if (!faults::stopFailing()) {
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
                  faults::failAfter(0);
                  const auto status = quorin_observable_subscribe(stream, &handlers, &released, nullptr);
                  faults::stopFailing();
                  return std::string(quorin_status_name(status)) + ' ' + std::to_string(released);
              }),
              "QUORIN_NO_MEMORY 1");
}

}  // namespace
}  // namespace quorin
