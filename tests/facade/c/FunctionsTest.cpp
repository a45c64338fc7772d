#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/facade/c/quorin.h"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

// What holds of every function of the C interface. The list of them is made from its headers.
namespace quorin {
namespace {

/// Makes arguments that no host should hand over.
class Nonsense {
public:
    explicit Nonsense(unsigned seed) : random_(seed) {}

    template <class T>
    T argument() {
        if (random_.max() == 0) return T{};
        if constexpr (std::is_same_v<T, quorin_handle>)
            return random_() % 3 == 0 ? random_() % 4 : (quorin_handle{random_() % 3} << 32) + random_() % 64;
        else if constexpr (std::is_same_v<T, std::int32_t>)
            return static_cast<std::int32_t>(random_() % 24) - 8;
        else if constexpr (std::is_same_v<T, quorin_text>)
            return texts()[random_() % texts().size()];
        else if constexpr (std::is_same_v<T, quorin_handle*>)
            return random_() % 4 == 0 ? nullptr : &number_;
        else if constexpr (std::is_same_v<T, std::int32_t*>)
            return random_() % 4 == 0 ? nullptr : &integer_;
        else
            return T{};
    }

private:
    static const std::vector<quorin_text>& texts() {
        static const std::vector<quorin_text> some{
            {nullptr, 0}, {nullptr, 7}, {"", 0},        {"x", UINT64_MAX}, {"\xff\0\xfe", 3},
            {"{}", 2},    {"[]", 2},    {"{\"a\":", 5}, {"\0", 1},         {"http://127.0.0.1:1/", 19}};
        return some;
    }

    std::mt19937 random_;
    quorin_handle number_ = 0;
    std::int32_t integer_ = 0;
};

template <class... Arguments>
quorin_status withNothing(quorin_status (*function)(Arguments...)) {
    return function(Arguments{}...);
}

template <class... Arguments>
quorin_status withNonsense(quorin_status (*function)(Arguments...), Nonsense& nonsense) {
    if constexpr (std::is_same_v<decltype(function), decltype(&quorin_observable_wait)>) {
        if (function == &quorin_observable_wait) return QUORIN_ABSENT;  // it may wait for what nobody assigns
    }
    return function(nonsense.argument<Arguments>()...);
}

/// The same handle, and otherwise what a function takes.
template <class... Arguments>
quorin_status withHandle(quorin_status (*function)(Arguments...), quorin_handle handle) {
    quorin_handle number = 0;
    std::int32_t integer = 0;
    std::string room(64, ' ');
    const quorin_handlers handlers{};
    const auto argument = [&]<class T>(T*) -> T {
        if constexpr (std::is_same_v<T, quorin_handle>)
            return handle;
        else if constexpr (std::is_same_v<T, quorin_handle*>)
            return &number;
        else if constexpr (std::is_same_v<T, std::int32_t*>)
            return &integer;
        else if constexpr (std::is_same_v<T, quorin_text>)
            return {"{}", 2};
        else if constexpr (std::is_same_v<T, const quorin_handlers*>)
            return &handlers;
        else
            return T{};
    };
    return function(argument(static_cast<Arguments*>(nullptr))...);
}

/// The names of the functions for which `call` yields `status`.
template <class Call>
std::string namesWith(quorin_status status, Call call) {
    std::set<std::string> names;
#define QUORIN_FUNCTION(name) \
    if (call(name) == status) names.insert(#name);
#include "functions.inc"
#undef QUORIN_FUNCTION
    std::string line;
    for (const auto& name : names) line += name + ' ';
    return line;
}

/// An app that uses the library already, so that no function changes where it keeps its values.
void begin(const Testbed& bed) {
    platform::install(bed.start());
    ConfigurationManager::sharedInstance();
}

TEST(Functions, AreAsManyAsTheHeadersTell) {
    std::size_t count = 0;
#define QUORIN_FUNCTION(name) ++count;
#include "functions.inc"
#undef QUORIN_FUNCTION
    EXPECT_GT(count, 80U);
}

TEST(Functions, TakeNothingForAnErrorButWhereItMeansSomething) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  begin(bed);
                  return namesWith(QUORIN_OK, [](auto* function) { return withNothing(function); });
              }),
              "quorin_manager_set_kova quorin_manager_set_profile_bind ");
}

TEST(Functions, YieldAStatusForNonsense) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  begin(bed);
                  std::string strange;
                  for (unsigned seed = 0; seed < 300; ++seed) {
                      Nonsense nonsense(seed);
                      namesWith(QUORIN_OK, [&](auto* function) {
                          const quorin_status status = withNonsense(function, nonsense);
                          if (std::string(quorin_status_name(status)) == "unknown") strange += "status ";
                          return status;
                      });
                  }
                  return strange + "done";
              }),
              "done");
}

TEST(Functions, RefuseAnObjectOfAnotherKind) {
    const Testbed bed;
    const std::string accepting = support::inChild([&] {
        begin(bed);
        quorin_handle stranger = QUORIN_NONE;
        quorin_anonymous_bind_make(quorin_text_of("p"), quorin_text_of("t"), &stranger);
        return namesWith(QUORIN_INVALID_HANDLE, [&](auto* function) { return withHandle(function, stranger); });
    });
    for (const std::string name :
         {"quorin_configuration_device", "quorin_feature_params", "quorin_web_service_headers", "quorin_map_count",
          "quorin_error_code", "quorin_text_read", "quorin_observable_subscribe", "quorin_observable_wait",
          "quorin_subscription_dispose", "quorin_params_set_has_valid_params", "quorin_request_build",
          "quorin_request_send", "quorin_response_body", "quorin_web_service_configuration_guard"})
        EXPECT_NE(accepting.find(name + ' '), std::string::npos) << name;
}

/// The functions that say that there is no such object.
std::string refusing(quorin_handle handle) {
    return namesWith(QUORIN_INVALID_HANDLE, [&](auto* function) { return withHandle(function, handle); });
}

TEST(Functions, TakeAReleasedHandleAsNoneAtAll) {
    const Testbed bed;
    EXPECT_EQ(support::inChild([&] {
                  begin(bed);
                  quorin_handle bind = QUORIN_NONE;
                  quorin_anonymous_bind_make(quorin_text_of("p"), quorin_text_of("t"), &bind);
                  quorin_release(bind);
                  const std::string released = refusing(bind);
                  quorin_handle other = QUORIN_NONE;  // stands where the released one stood
                  quorin_anonymous_bind_make(quorin_text_of("q"), quorin_text_of("t"), &other);
                  const bool same = released == refusing(bind) && released == refusing(quorin_handle{1} << 60);
                  return std::string(same && bind != other && !released.empty() ? "as none" : "alive");
              }),
              "as none");
}

}  // namespace
}  // namespace quorin
