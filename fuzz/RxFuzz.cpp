// A program of two bytes a step: subscribe, assign, dispose, end a cell, and nested in the handlers the steps that come
// next. Every event arrives as in a plain model of the rules, in the same order.
#include "quorin/platform/rx/DistinctUntilChanged.hpp"
#include "quorin/platform/rx/Share.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "fuzz/Fuzz.hpp"

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorin::fuzz {
namespace {

constexpr std::size_t cells = 2;
constexpr std::size_t kinds = 5;  ///< of streams of a cell: as they are listed in both worlds
constexpr int initial = 0;

using Event = std::optional<int>;  ///< a value, or completion
using Handler = std::function<void(Event)>;

/// The library.
class Real {
public:
    Real() {
        for (auto& cell : cells_) {
            const auto plain = cell.emplace(initial).asObservable();
            const auto shared = rx::share(plain);
            for (const auto& stream : {plain, rx::distinctUntilChanged(plain), shared, rx::distinctUntilChanged(shared),
                                       rx::share(rx::distinctUntilChanged(plain))})
                streams_.push_back(stream);
        }
    }
    ~Real() = default;
    Real(const Real&) = delete;
    Real& operator=(const Real&) = delete;

    std::function<void()> subscribe(std::size_t stream, const Handler& handler) {
        const auto handle = streams_[stream].subscribe(
            [handler](const rx::Event<int>& event) { handler(event.value() ? Event(*event.value()) : std::nullopt); });
        return [handle] { handle.dispose(); };
    }
    void assign(std::size_t cell, int value) {
        if (cells_[cell]) cells_[cell]->assign(value);
    }
    void end(std::size_t cell) { cells_[cell].reset(); }
    Event value(std::size_t cell) const { return cells_[cell] ? Event(cells_[cell]->value()) : std::nullopt; }

private:
    std::array<std::optional<rx::Variable<int>>, cells> cells_{};
    std::vector<rx::Observable<int>> streams_{};
};

/// The rules, for one thread, in the plainest words. It owns everything until its end, so that nothing here is about
/// lifetimes.
class Model {
public:
    Model() {
        for (std::size_t i = 0; i < cells; ++i) {
            Hub& hub = hubs_.emplace_back();
            hub.last = initial;
            values_.emplace_back(&hub, initial);
            const Source plain = [&hub](const Handler& handler) { return hub.add(handler); };
            const Source shared = share(plain);
            for (const auto& source : {plain, distinct(plain), shared, distinct(shared), share(distinct(plain))})
                sources_.push_back(source);
        }
    }
    ~Model() = default;
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    std::function<void()> subscribe(std::size_t stream, const Handler& handler) {
        return follow(sources_[stream], handler);
    }
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
    using Stop = std::function<void()>;
    using Source = std::function<Stop(const Handler&)>;

    /// An event goes to those who were there when it was sent and still are, and all before it go first; who comes gets
    /// the last value first, at once where one is being delivered.
    struct Hub {
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

    /// A subscription: nothing passes after its end or after it was left.
    struct Gate {
        bool isOpen = true;
        bool isLeft = false;
        Stop stop{};
    };

    struct Connection {
        Hub hub{};
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
    std::deque<Hub> hubs_{};
    std::deque<Connection> connections_{};
    std::vector<Source> sources_{};
    std::vector<std::pair<Hub*, Event>> values_{};
};

/// One program in one world, and all that was seen there.
template <class World>
class Run {
public:
    explicit Run(std::string_view program) : program_(program) {
        while (!program_.empty()) step();
        for (std::size_t cell = 0; cell < cells; ++cell) world_.end(cell);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    using Seen = std::vector<std::pair<std::size_t, Event>>;
    const Seen& seen() const { return seen_; }

private:
    static constexpr int deepest = 6;
    static constexpr std::size_t ofCell = 1'000'000;  ///< beyond the numbers of all subscribers

    std::size_t take() {
        const auto byte = static_cast<unsigned char>(program_.empty() ? 0 : program_[0]);
        program_.remove_prefix(std::min<std::size_t>(1, program_.size()));
        return byte;
    }

    void step() {
        const std::size_t what = take(), which = take();
        switch (what % 8) {
            case 0:
            case 1:
            case 2: return subscribe(which % (cells * kinds), (what / 8) % 3);
            case 3:
            case 4: return world_.assign(which % cells, static_cast<int>(which / cells % 3));
            case 5:
            case 6: return dispose(which);
            default:
                if (which % 16 < cells) return world_.end(which % 16);
                seen_.emplace_back(ofCell + which % cells, world_.value(which % cells));
        }
    }

    /// Its handler goes on with the program for so many steps at each event.
    void subscribe(std::size_t stream, std::size_t nested) {
        const std::size_t number = stops_.size();
        stops_.emplace_back();
        auto stop = world_.subscribe(stream, [this, number, nested](Event event) {
            seen_.emplace_back(number, event);
            if (depth_ >= deepest) return;
            ++depth_;
            for (std::size_t i = 0; i < nested && !program_.empty(); ++i) step();
            --depth_;
        });
        stops_[number] = std::move(stop);
    }

    void dispose(std::size_t which) {
        if (stops_.empty()) return;
        const auto stop = stops_[which % stops_.size()];
        if (stop) stop();
    }

    std::string_view program_;
    int depth_ = 0;
    Seen seen_{};
    std::vector<std::function<void()>> stops_{};
    World world_{};
};

void check(std::string_view program) {
    require(Run<Real>(program).seen() == Run<Model>(program).seen(), "events arrive by the rules");
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size <= 200) quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
