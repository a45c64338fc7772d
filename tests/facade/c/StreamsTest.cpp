#include "quorin/facade/c/quorin.h"

#include "tests/facade/c/InstalledHost.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>

namespace quorin {
namespace {

using host::text;
using host::textWith;

/// What a subscription hears, in the order in which it comes.
struct Story {
    std::string words{};
    std::atomic<bool> isReleased = false;

    static void value(void* user, quorin_handle value) {
        auto& words = static_cast<Story*>(user)->words;
        words += value == QUORIN_NONE ? "nothing " : textWith(quorin_text_read, value).second + ' ';
    }
    static void error(void* user, quorin_handle error) {
        static_cast<Story*>(user)->words += textWith(quorin_error_description, error).second + ' ';
    }
    static void completed(void* user) { static_cast<Story*>(user)->words += "completed "; }
    static void released(void* user) {
        static_cast<Story*>(user)->isReleased = true;
        static_cast<Story*>(user)->isReleased.notify_all();
    }

    static constexpr quorin_handlers handlers{value, error, completed, released};

    /// All of it, once nothing can come any more.
    std::string whole() const {
        isReleased.wait(false);
        return words + "released";
    }
};

TEST_F(Host, LoadsAConfigurationForABrandAndAVersion) {
    EXPECT_EQ(inHost([](const App& app) {
                  const quorin_handle configuration = App::valueOf(app.load("/a.json", QUORIN_BRAND_PELLOW, "2.0"));
                  std::int32_t brand = -7, configured = 0;
                  quorin_configuration_brand(configuration, &brand);
                  quorin_manager_configured(&configured);
                  return text(quorin_configuration_version, configuration)
                         + text(quorin_configuration_device, configuration) + std::to_string(brand)
                         + std::to_string(configured);
              }),
              "2.0D21");
}

TEST_F(Host, LoadsWithoutABrandAndInVersionOneWhereNoneIsNamed) {
    EXPECT_EQ(inHost([](const App& app) {
                  const quorin_handle configuration = App::valueOf(app.load("/a.json"));
                  quorin_handle current = QUORIN_NONE;
                  quorin_manager_configuration(&current);
                  const bool same =
                      text(quorin_configuration_encode, configuration) == text(quorin_configuration_encode, current);
                  return text(quorin_configuration_version, configuration) + (same ? " same" : " other");
              }),
              "1.0.0 same");
}

TEST_F(Host, RefusesABrandThatIsNone) {
    EXPECT_EQ(inHost([](const App& app) {
                  return std::to_string(app.load("/a.json", 6)) + std::to_string(app.load("/a.json", -2))
                         + std::to_string(app.load("/a.json", INT32_MIN));
              }),
              "000");
}

TEST_F(Host, HearsWhyALoadFailed) {
    EXPECT_EQ(inHost([](const App& app) {
                  quorin_handle value = 7, error = QUORIN_NONE;
                  const quorin_status status = quorin_observable_wait(app.load("/broken"), &value, &error);
                  std::int32_t code = 0;
                  const bool hasCode = quorin_error_code(error, &code) == QUORIN_OK;
                  return std::string(quorin_status_name(status)) + ' ' + std::to_string(value) + ' '
                         + (hasCode ? "oops" : text(quorin_error_kind, error));
              }),
              "QUORIN_FAILED 0 decoding");
}

TEST_F(Host, ObservesTheAccountUntilItDisposes) {
    EXPECT_EQ(inHost([](const App&) {
                  Story story;
                  quorin_handle stream = QUORIN_NONE, subscription = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  quorin_observable_subscribe(stream, &Story::handlers, &story, &subscription);
                  quorin_manager_set_kova(quorin_text_of("a"));
                  quorin_manager_set_kova(quorin_text_of("a"));
                  quorin_manager_set_kova(quorin_text_of(nullptr));
                  quorin_subscription_dispose(subscription);
                  quorin_manager_set_kova(quorin_text_of("b"));
                  return story.whole();
              }),
              "a a nothing released");
}

TEST_F(Host, GoesOnObservingWhereAllHandlesAreReleased) {
    EXPECT_EQ(inHost([](const App&) {
                  Story story;
                  quorin_handle stream = QUORIN_NONE, subscription = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  quorin_observable_subscribe(stream, &Story::handlers, &story, &subscription);
                  quorin_release(stream);
                  quorin_release(subscription);
                  quorin_manager_set_kova(quorin_text_of("a"));
                  return story.words + (story.isReleased ? "released" : "held");
              }),
              "a held");
}

TEST_F(Host, ObservesProfilesAndToken) {
    EXPECT_EQ(inHost([](const App&) {
                  Story parents, children, tokens;
                  quorin_handle parent = QUORIN_NONE, child = QUORIN_NONE, token = QUORIN_NONE, bind = QUORIN_NONE;
                  quorin_manager_parent_profile_id_observer(&parent);
                  quorin_manager_child_profile_id_observer(&child);
                  quorin_manager_profile_jwt_observer(&token);
                  quorin_observable_subscribe(parent, &Story::handlers, &parents, nullptr);
                  quorin_observable_subscribe(child, &Story::handlers, &children, nullptr);
                  quorin_observable_subscribe(token, &Story::handlers, &tokens, nullptr);
                  quorin_anonymous_bind_make(quorin_text_of("p"), quorin_text_of("t"), &bind);
                  quorin_manager_set_profile_bind(bind);
                  quorin_manager_set_profile_bind(QUORIN_NONE);
                  return parents.words + '|' + children.words + '|' + tokens.words;
              }),
              "p ||t ");
}

TEST_F(Host, ReadsTheBindItAssigned) {
    EXPECT_EQ(inHost([](const App&) {
                  quorin_handle bind = QUORIN_NONE, none = 7;
                  const quorin_status before = quorin_manager_profile_bind(&none);
                  quorin_anonymous_bind_make(quorin_text_of("p"), quorin_text_of("t"), &bind);
                  quorin_manager_set_profile_bind(bind);
                  quorin_manager_profile_bind(&bind);
                  return std::string(quorin_status_name(before)) + std::to_string(none)
                         + text(quorin_anonymous_bind_profile_id, bind) + text(quorin_anonymous_bind_profile_jwt, bind);
              }),
              "QUORIN_ABSENT0pt");
}

TEST_F(Host, ReadsTheSupportCard) {
    EXPECT_EQ(inHost([](const App&) { return text(quorin_manager_support_card).substr(0, 28); }),
              "library: QuorinConfigManager");
}

TEST_F(Host, ReadsAccountAndUserAgent) {
    EXPECT_EQ(inHost([](const App&) {
                  const quorin_status before = textWith(quorin_manager_kova).first;
                  quorin_manager_set_kova(quorin_text_of("account"));
                  quorin_manager_set_user_agent(quorin_text_of("A B CFNetwork/1 Darwin/2"));
                  const std::string agent = text(quorin_manager_user_agent);
                  return std::string(quorin_status_name(before)) + ' ' + text(quorin_manager_kova) + ' '
                         + agent.substr(0, 6) + ' ' + agent.substr(agent.size() - 20);
              }),
              "QUORIN_ABSENT account Sample CFNetwork/1 Darwin/2");
    EXPECT_EQ(bed_.stored("com.vexodigitalMedia.kova"), "account");
}

TEST_F(Host, IsInstalledBeforeTheFirstUseOrNotAtAll) {
    EXPECT_EQ(inHost([](const App&) {
                  std::int32_t configured = 7;
                  quorin_manager_configured(&configured);
                  return std::string(quorin_status_name(
                      quorin_install(quorin_text_of("Late"), quorin_text_of(nullptr), quorin_text_of(nullptr))));
              }),
              "QUORIN_REFUSED");
}

TEST_F(Host, IsToldWhenItsPointerIsNotNeededEvenWhereNothingBegan) {
    EXPECT_EQ(inHost([](const App&) {
                  Story story;
                  const auto status = quorin_observable_subscribe(QUORIN_NONE, &Story::handlers, &story, nullptr);
                  return story.whole() + ' ' + quorin_status_name(status);
              }),
              "released QUORIN_INVALID_HANDLE");
}

TEST_F(Host, IsToldWhenALoadHasEnded) {
    EXPECT_EQ(inHost([](const App& app) {
                  Story story;
                  quorin_observable_subscribe(app.load("/broken"), &Story::handlers, &story, nullptr);
                  const std::string whole = story.whole();
                  const bool isError = whole.find("decoding") != whole.npos && whole.find("completed") == whole.npos;
                  return isError ? whole.substr(whole.rfind(' ') + 1) : whole;
              }),
              "released");
}

TEST_F(Host, KeepsALentHandleByACopy) {
    EXPECT_EQ(inHost([](const App&) {
                  static quorin_handle lent = QUORIN_NONE, kept = QUORIN_NONE;
                  const quorin_handlers handlers{[](void*, quorin_handle value) {
                                                     lent = value;
                                                     quorin_copy(value, &kept);
                                                 },
                                                 nullptr, nullptr, nullptr};
                  quorin_handle stream = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  quorin_observable_subscribe(stream, &handlers, nullptr, nullptr);
                  quorin_manager_set_kova(quorin_text_of("account"));
                  return text(quorin_text_read, kept) + ' ' + quorin_status_name(quorin_release(lent));
              }),
              "account QUORIN_INVALID_HANDLE");
}

TEST_F(Host, MayReleaseALentHandleItself) {
    EXPECT_EQ(inHost([](const App&) {
                  static quorin_status released = QUORIN_FAILED;
                  const quorin_handlers handlers{[](void*, quorin_handle value) { released = quorin_release(value); },
                                                 nullptr, nullptr, nullptr};
                  quorin_handle stream = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  quorin_observable_subscribe(stream, &handlers, nullptr, nullptr);
                  quorin_manager_set_kova(quorin_text_of("account"));
                  return std::string(quorin_status_name(released));
              }),
              "QUORIN_OK");
}

/// A subscription to the account that does something with it inside its own function.
struct Inside {
    quorin_handle subscription = QUORIN_NONE;
    int calls = 0;
    quorin_status waited = QUORIN_OK;

    static quorin_handle begin(Inside& self, void (*value)(void*, quorin_handle)) {
        const quorin_handlers handlers{value, nullptr, nullptr, nullptr};
        quorin_handle stream = QUORIN_NONE;
        quorin_manager_kova_observer(&stream);
        quorin_observable_subscribe(stream, &handlers, &self, &self.subscription);
        return stream;
    }
    static Inside& of(void* user) { return *static_cast<Inside*>(user); }
};

TEST_F(Host, MayDisposeInsideItsFunction) {
    EXPECT_EQ(inHost([](const App&) {
                  Inside inside;
                  Inside::begin(inside, [](void* user, quorin_handle) {
                      ++Inside::of(user).calls;
                      quorin_subscription_dispose(Inside::of(user).subscription);
                  });
                  quorin_manager_set_kova(quorin_text_of("a"));
                  quorin_manager_set_kova(quorin_text_of("b"));
                  return std::to_string(inside.calls);
              }),
              "1");
}

TEST_F(Host, IsCalledAgainWhereItAssignsInsideItsFunction) {
    EXPECT_EQ(inHost([](const App&) {
                  Inside inside;
                  Inside::begin(inside, [](void* user, quorin_handle) {
                      if (++Inside::of(user).calls < 3) quorin_manager_set_kova(quorin_text_of("again"));
                  });
                  quorin_manager_set_kova(quorin_text_of("a"));
                  return std::to_string(inside.calls);
              }),
              "3");
}

TEST_F(Host, DoesNotWaitInsideItsFunction) {
    EXPECT_EQ(inHost([](const App&) {
                  Inside inside;
                  Inside::begin(inside, [](void* user, quorin_handle) {
                      quorin_handle stream = QUORIN_NONE, value = QUORIN_NONE, error = QUORIN_NONE;
                      quorin_manager_kova_observer(&stream);
                      Inside::of(user).waited = quorin_observable_wait(stream, &value, &error);
                  });
                  quorin_manager_set_kova(quorin_text_of("a"));
                  return std::string(quorin_status_name(inside.waited));
              }),
              "QUORIN_REFUSED");
}

TEST_F(Host, HasTheHandleOfASubscriptionBeforeItIsFirstCalled) {
    EXPECT_EQ(inHost([](const App& app) {
                  static quorin_handle subscription = QUORIN_NONE;
                  static std::atomic<quorin_handle> seen = QUORIN_NONE;
                  Story story;
                  quorin_handlers handlers = Story::handlers;
                  handlers.error = [](void*, quorin_handle) { seen = subscription; };
                  quorin_observable_subscribe(app.load("ftp:"), &handlers, &story, &subscription);
                  const std::string whole = story.whole();
                  return whole + (seen != QUORIN_NONE && seen == subscription ? " with it" : " without");
              }),
              "released with it");
}

TEST_F(Host, MayDisposeOnAnotherThreadWhileItsFunctionRuns) {
    EXPECT_EQ(inHost([](const App&) {
                  static std::latch entered(1), left(1);
                  Story story;
                  quorin_handlers handlers = Story::handlers;
                  handlers.value = [](void*, quorin_handle) {
                      entered.count_down();
                      left.wait();
                  };
                  quorin_handle stream = QUORIN_NONE, subscription = QUORIN_NONE;
                  quorin_manager_kova_observer(&stream);
                  quorin_observable_subscribe(stream, &handlers, &story, &subscription);
                  std::thread assigning([] { quorin_manager_set_kova(quorin_text_of("a")); });
                  entered.wait();
                  quorin_subscription_dispose(subscription);
                  const bool early = story.isReleased;
                  left.count_down();
                  assigning.join();
                  return (early ? "early " : "in time ") + story.whole();
              }),
              "in time released");
}

}  // namespace
}  // namespace quorin
