#pragma once

#include "fuzz/RxHub.hpp"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorin::fuzz {

inline constexpr std::size_t cells = 2;
inline constexpr std::size_t kinds = 5;  ///< of streams of a cell: as they are listed in both worlds
inline constexpr int initial = 0;

/// The rules, for one thread, in the plainest words. It owns everything until its end, so that nothing here is about
/// lifetimes.
class RxModel {
public:
    RxModel() {
        for (std::size_t i = 0; i < cells; ++i) {
            RxHub& hub = hubs_.emplace_back();
            hub.last = initial;
            values_.emplace_back(&hub, initial);
            const Source plain = [&hub](const Handler& handler) { return hub.add(handler); };
            const Source shared = share(plain);
            for (const auto& source : {plain, distinct(plain), shared, distinct(shared), share(distinct(plain))})
                sources_.push_back(source);
        }
    }
    ~RxModel() = default;
    RxModel(const RxModel&) = delete;
    RxModel& operator=(const RxModel&) = delete;

    Stop subscribe(std::size_t stream, const Handler& handler) { return follow(sources_[stream], handler); }
    void assign(std::size_t cell, int value) {
        if (!values_[cell].second) return;
        values_[cell].second = value;
        values_[cell].first->send(value);
    }
    void end(std::size_t cell) {
        if (std::exchange(values_[cell].second, std::nullopt)) values_[cell].first->send(std::nullopt);
    }
    Event value(std::size_t cell) const { return values_[cell].second; }

private:
    using Source = std::function<Stop(const Handler&)>;

    /// A subscription: nothing passes after its end or after it was left.
    struct Gate {
        bool isOpen = true;
        bool isLeft = false;
        Stop stop{};
    };

    struct Connection {
        RxHub hub{};
        std::size_t members = 0;
        bool isOpen = true;
        Stop stop{};
    };

    Stop follow(const Source& source, const Handler& handler) {
        Gate& gate = gates_.emplace_back();
        gate.stop = source([&gate, handler](Event event) {
            if (!gate.isOpen) return;
            gate.isOpen = event.has_value();
            handler(event);
        });
        return [&gate] {
            gate.isOpen = false;
            if (!std::exchange(gate.isLeft, true) && gate.stop) gate.stop();
        };
    }

    /// Each subscriber has a last value of its own.
    Source distinct(const Source& source) {
        return [this, source](const Handler& handler) {
            return follow(source, [handler, last = std::make_shared<Event>()](Event event) {
                if (event && *last == event) return;
                *last = event;
                handler(event);
            });
        };
    }

    /// One connection for all who are there at a time; the first makes it, the last breaks it.
    Source share(const Source& source) {
        return [this, source, current = std::make_shared<Connection*>(nullptr)](const Handler& handler) -> Stop {
            const bool isFirst = !*current || !(*current)->isOpen;
            if (isFirst) *current = &connections_.emplace_back();
            Connection& connection = **current;
            const Stop leave = connection.hub.add(handler);
            ++connection.members;
            if (isFirst) {
                connection.stop = follow(source, [&connection](Event event) {
                    if (!event) connection.isOpen = false;
                    connection.hub.send(event);
                });
            }
            return [&connection, leave] {
                leave();
                if (--connection.members > 0) return;
                connection.isOpen = false;
                connection.stop();
            };
        };
    }

    std::deque<Gate> gates_{};
    std::deque<RxHub> hubs_{};
    std::deque<Connection> connections_{};
    std::vector<Source> sources_{};
    std::vector<std::pair<RxHub*, Event>> values_{};
};

}  // namespace quorin::fuzz
