#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/facade/c/quorin.h"

#include "tests/context/Testbed.hpp"
#include "tests/support/Child.hpp"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

// What holds of every function of the C interface. The list of them is made from its headers.
namespace quorin {
namespace {

/// Makes arguments that no host should hand over. A number may be a handle or a length: either they are handles, and
/// there is no room that they could be the length of, or all room is as large as the largest.
class Nonsense {
public:
    explicit Nonsense(unsigned seed) : random_(seed), areHandles_(seed % 2 == 0) {}

    template <class T>
    T argument() {
        if constexpr (std::is_pointer_v<T>)
            return random_() % 4 == 0 ? nullptr : pointer(static_cast<T>(nullptr));
        else if constexpr (std::is_same_v<T, quorin_handle>)
            return areHandles_ ? (quorin_handle{1 + random_() % 3} << 32) + random_() % 64 : random_() % roomEnough;
        else if constexpr (std::is_same_v<T, std::int32_t>)
            return static_cast<std::int32_t>(random_() % 24) - 8;
        else
            return text();
    }

private:
    quorin_text text() {
        static const std::array<quorin_text, 10> some{{{nullptr, 0},
                                                       {nullptr, 7},
                                                       {"", 0},
                                                       {"x", UINT64_MAX},
                                                       {"\xff\0\xfe", 3},
                                                       {"{}", 2},
                                                       {"[]", 2},
                                                       {"{\"a\":", 5},
                                                       {"\0", 1},
                                                       {"http://127.0.0.1:1/", 19}}};
        return some.at(random_() % some.size());
    }

    std::uint64_t* pointer(std::uint64_t*) { return &number_; }
    std::int32_t* pointer(std::int32_t*) { return &integer_; }
    void* pointer(void*) { return this; }
    const quorin_handlers* pointer(const quorin_handlers*) { return &handlers_; }

    char* pointer(char*) { return areHandles_ ? nullptr : room_.data(); }
    const quorin_pair* pointer(const quorin_pair*) {
        if (areHandles_) return nullptr;
        for (auto& pair : pairs_) pair = {text(), text()};
        return pairs_.data();
    }

    static constexpr std::size_t roomEnough = 64;

    static void ignore(void*, quorin_handle) {}

    std::mt19937 random_;
    bool areHandles_;
    std::uint64_t number_ = 0;
    std::int32_t integer_ = 0;
    std::string room_ = std::string(roomEnough, ' ');
    std::vector<quorin_pair> pairs_ = std::vector<quorin_pair>(roomEnough);
    quorin_handlers handlers_{ignore, nullptr, nullptr, nullptr};
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

/// The functions that say that there is no such object.
std::string refusing(quorin_handle handle) {
    return namesWith(QUORIN_INVALID_HANDLE, [&](auto* function) { return withHandle(function, handle); });
}

/// The functions that take an object for what it is not, or take none.
std::string acceptingABind() {
    return namesWith(0, [&](auto* function) {
        quorin_handle bind = QUORIN_NONE;
        quorin_anonymous_bind_make(quorin_text_of("p"), quorin_text_of("t"), &bind);
        const quorin_status status = withHandle(function, bind);
        quorin_release(bind);
        return status == QUORIN_INVALID_HANDLE ? 1 : 0;
    });
}

TEST(Functions, RefuseAnObjectOfAnotherKindWhereTheyTakeOne) {
    const Testbed bed;
    const std::string accepting = support::inChild([&] {
        begin(bed);
        return acceptingABind();
    });
    EXPECT_EQ(accepting,
              // those that are for it, for any object or for none,
              "quorin_anonymous_bind_encode quorin_anonymous_bind_from_encoded quorin_anonymous_bind_make "
              "quorin_anonymous_bind_profile_id quorin_anonymous_bind_profile_jwt quorin_application_data_from_encoded "
              "quorin_brand_from_raw_value quorin_brand_raw_value quorin_configuration_from_encoded "
              "quorin_content_type_from_raw_value quorin_content_type_raw_value quorin_copy "
              "quorin_feature_from_encoded quorin_http_method_from_raw_value quorin_http_method_raw_value "
              "quorin_install quorin_manager_child_profile_id_observer quorin_manager_configuration "
              "quorin_manager_configured quorin_manager_initialize quorin_manager_kova quorin_manager_kova_observer "
              "quorin_manager_parent_profile_id_observer quorin_manager_profile_bind "
              "quorin_manager_profile_jwt_observer quorin_manager_set_kova quorin_manager_set_profile_bind "
              // and three that see before that their list is not there
              "quorin_manager_set_user_agent quorin_manager_support_card quorin_manager_user_agent quorin_params_make "
              "quorin_params_set_headers "
              "quorin_params_set_query_parameters quorin_params_set_url_mapping quorin_release quorin_request_create "
              "quorin_web_service_from_encoded ");
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
