#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/rx/ObserveOn.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "Log.hpp"

#include <gtest/gtest.h>

#include <new>
#include <thread>
#include <utility>
#include <vector>

namespace quorin::rx {
namespace {

using Tasks = std::vector<std::function<void()>>;

Executor later(Tasks& tasks) {
    return [&tasks](std::function<void()> task) { tasks.push_back(std::move(task)); };
}

void runAll(Tasks& tasks) {
    for (const auto& task : std::exchange(tasks, {})) task();
}

TEST(ObserveOn, DeliversInTasksOfTheExecutor) {
    Log log;
    Tasks tasks;
    observeOn(just(4), later(tasks)).subscribe(into(log, "a"));
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(tasks.size(), 2u);
    runAll(tasks);
    EXPECT_EQ(log, (Log{"a4", "a."}));
}

TEST(ObserveOn, PassesAnErrorOnBehindTheValues) {
    Log log;
    Tasks tasks;
    const Observable<int> stream([](const Observer<int>& observer) {
        observer.next(1);
        observer.fail(Broken{});
        return Disposable();
    });
    observeOn(stream, later(tasks)).subscribe(into(log, "a"));
    runAll(tasks);
    EXPECT_EQ(log, (Log{"a1", "a!"}));
}

TEST(ObserveOn, KeepsTheOrderWhateverTheExecutorDoes) {
    Log log;
    Tasks tasks;
    Variable<int> cell(1);
    observeOn(cell.asObservable(), later(tasks)).subscribe(into(log, "a"));
    cell.assign(2);
    cell.assign(3);
    for (auto task = tasks.rbegin(); task != tasks.rend(); ++task) (*task)();
    EXPECT_EQ(log, (Log{"a1", "a2", "a3"}));
}

TEST(ObserveOn, DeliversOneEventAtATimeOnSeveralThreads) {
    std::vector<int> expected{0};
    std::vector<int> values;  // without a lock of its own
    std::vector<std::jthread> threads;
    Variable<int> cell(0);
    observeOn(cell.asObservable(), [&](std::function<void()> task) {
        threads.emplace_back(std::move(task));
    }).subscribe({.next = [&](int value) { values.push_back(value); }});
    for (int value = 1; value <= 50; ++value) {
        cell.assign(value);
        expected.push_back(value);
    }
    threads.clear();
    EXPECT_EQ(values, expected);
}

TEST(ObserveOn, FinishesOneEventBeforeTheNextWithAnExecutorThatRunsAtOnce) {
    Log log;
    Variable<int> cell(1);
    observeOn(cell.asObservable(), [](const std::function<void()>& task) {
        task();
    }).subscribe([&](const Event<int>& event) {
        log.push_back(entry("begin", event));
        if (event.value() && *event.value() == 2) cell.assign(3);
        log.push_back(entry("end", event));
    });
    cell.assign(2);
    EXPECT_EQ(log, (Log{"begin1", "end1", "begin2", "end2", "begin3", "end3"}));
}

TEST(ObserveOn, DeliversNothingAfterItWasDisposed) {
    Log log;
    Tasks tasks;
    Variable<int> cell(1);
    const Disposable subscription = observeOn(cell.asObservable(), later(tasks)).subscribe(into(log, "a"));
    runAll(tasks);
    cell.assign(2);
    subscription.dispose();
    cell.assign(3);
    EXPECT_EQ(tasks.size(), 1u);
    runAll(tasks);
    EXPECT_EQ(log, Log{"a1"});
}

TEST(ObserveOn, TakesAnEventBackForWhichTheExecutorHasNoMemory) {
    Log log;
    Tasks tasks;
    bool hasMemory = true;
    Variable<int> cell(1);
    observeOn(cell.asObservable(), [&](std::function<void()> task) {
        if (!hasMemory) throw std::bad_alloc();
        tasks.push_back(std::move(task));
    }).subscribe(into(log, "a"));
    hasMemory = false;
    EXPECT_THROW(cell.assign(2), std::bad_alloc);
    hasMemory = true;
    cell.assign(3);
    runAll(tasks);
    EXPECT_EQ(log, (Log{"a1", "a3"}));
}

TEST(ObserveOn, TellsTheExecutorThatTheHandlerHasNoMemory) {
    Log log;
    Tasks tasks;
    Variable<int> cell(1);
    observeOn(cell.asObservable(), later(tasks)).subscribe([&](const Event<int>& event) {
        if (*event.value() == 1) throw std::bad_alloc();
        log.push_back(entry("a", event));
    });
    cell.assign(2);
    EXPECT_THROW(tasks.front()(), std::bad_alloc);
    tasks.back()();
    EXPECT_EQ(log, Log{"a2"});
}

TEST(ObserveOn, DeliversOnTheThreadOfTheExecutor) {
    Tasks tasks;
    std::thread::id delivering;
    observeOn(just(4), later(tasks)).subscribe({.next = [&](int) { delivering = std::this_thread::get_id(); }});
    std::jthread thread([&] { runAll(tasks); });
    const auto expected = thread.get_id();
    thread.join();
    EXPECT_EQ(delivering, expected);
}

}  // namespace
}  // namespace quorin::rx
