#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace quorin::fuzz {

using Event = std::optional<int>;  ///< a value, or completion
using Handler = std::function<void(Event)>;
using Stop = std::function<void()>;

/// An event goes to those who were there when it was sent and still are, and all before it go first; who comes gets
/// the last value first, at once where one is being delivered.
struct RxHub {
    std::map<std::size_t, Handler> handlers{};
    std::deque<std::pair<Event, std::deque<std::size_t>>> queue{};
    std::optional<int> last{};  ///< for those who come; absent: they get nothing
    std::size_t count = 0;
    bool isDelivering = false;
    bool hasEnded = false;

    Stop add(const Handler& handler) {
        if (hasEnded) {
            if (last) handler(last);
            handler(std::nullopt);
            return {};
        }
        const std::size_t number = count++;
        handlers[number] = handler;
        if (last && isDelivering) {
            handler(last);
        } else if (last) {
            queue.push_back({last, {number}});
            deliver();
        }
        return [this, number] { handlers.erase(number); };
    }

    void send(Event event) {
        if (hasEnded) return;
        hasEnded = !event;
        if (event && last) last = event;
        std::deque<std::size_t> all;
        for (const auto& [number, handler] : handlers) all.push_back(number);
        queue.emplace_back(event, all);
        deliver();
    }

    void deliver() {
        const bool wasDelivering = std::exchange(isDelivering, true);
        while (!queue.empty()) {
            auto& [event, numbers] = queue.front();
            if (numbers.empty()) {
                queue.pop_front();
                continue;
            }
            const auto found = handlers.find(numbers.front());
            numbers.pop_front();
            if (found == handlers.end()) continue;
            const Handler handler = found->second;
            handler(Event(event));
        }
        isDelivering = wasDelivering;
    }
};

}  // namespace quorin::fuzz
