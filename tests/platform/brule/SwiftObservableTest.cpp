#include "quorin/platform/brule/SwiftObservable.hpp"
#include "quorin/platform/ombrith/Oops.hpp"
#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quorin {
namespace {

struct Named {
    static constexpr std::string_view objectName = "Named";
    int number = 0;
};

struct Namesake {
    static constexpr std::string_view objectName = "Other";
};

TEST(Object, IsWhatItWasMadeFrom) {
    EXPECT_EQ(*Object(std::string("text")).as<std::string>(), "text");
    EXPECT_EQ(Object(Named{7}).as<Named>()->number, 7);
    EXPECT_EQ(**Object(std::optional<std::string>("text")).as<std::optional<std::string>>(), "text");
}

TEST(Object, IsNothingElse) {
    EXPECT_EQ(Object(std::string("1")).as<int>(), nullptr);
    EXPECT_EQ(Object(1).as<long>(), nullptr);
    EXPECT_EQ(Object(Named{}).as<Namesake>(), nullptr);
    EXPECT_EQ(Object(std::optional<int>(1)).as<int>(), nullptr);
}

namespace first {
struct Value {
    int number = 1;
};
}  // namespace first

TEST(Object, IsNotANamesakeOfItsType) {
    struct Value {
        int number = 2;
    };
    EXPECT_EQ(Object(Value()).as<first::Value>(), nullptr);
    EXPECT_EQ(Object(Value()).as<Value>()->number, 2);
}

TEST(Object, IsSharedByItsCopies) {
    const Object object(std::string("text"));
    const Object copy = object;
    EXPECT_EQ(copy.as<std::string>(), object.as<std::string>());
}

TEST(SwiftObservable, DeliversValuesAsObjectsThenCompletion) {
    std::vector<std::string> story;
    SwiftObservable(rx::just(std::string("a")))
        .subscribe([&](const Object& value) { story.push_back(*value.as<std::string>()); },
                   [&](const rx::Error&) { story.emplace_back("error"); }, [&] { story.emplace_back("completed"); });
    EXPECT_EQ(story, (std::vector<std::string>{"a", "completed"}));
}

TEST(SwiftObservable, DeliversTheErrorAsItIs) {
    const Oops oops{.component = 1, .element = 2, .errorCode = 3, .message = "words"};
    std::optional<Oops> received;
    SwiftObservable(rx::error<int>(oops)).subscribe({}, [&](const rx::Error& error) { received = *error.as<Oops>(); });
    EXPECT_EQ(received, oops);
}

TEST(SwiftObservable, PassesOverWhatNobodyAskedFor) {
    bool isDelivered = false;
    const rx::Observable<int> stream([&](const rx::Observer<int>& observer) {
        observer.next(1);
        observer.fail(Oops{});
        isDelivered = observer.isDisposed();
        return rx::Disposable();
    });
    SwiftObservable(stream).subscribe({});
    EXPECT_TRUE(isDelivered);
}

TEST(SwiftObservable, DeliversNothingAfterDisposal) {
    rx::Variable<int> cell(1);
    std::vector<int> values;
    const rx::Disposable subscription = SwiftObservable(cell.asObservable()).subscribe([&](const Object& value) {
        values.push_back(*value.as<int>());
    });
    cell.assign(2);
    subscription.dispose();
    cell.assign(3);
    EXPECT_EQ(values, (std::vector<int>{1, 2}));
}

TEST(SwiftObservable, IsACopyOfTheSameStream) {
    int subscriptions = 0;
    const SwiftObservable holder(rx::Observable<int>([&](const rx::Observer<int>& observer) {
        ++subscriptions;
        observer.complete();
        return rx::Disposable();
    }));
    const SwiftObservable copy = holder;
    holder.subscribe({});
    copy.subscribe({});
    EXPECT_EQ(subscriptions, 2);
}

}  // namespace
}  // namespace quorin
