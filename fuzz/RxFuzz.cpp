// A program of two bytes a step: subscribe, assign, dispose, end a cell, and nested in the handlers the steps that come
// next. Every event arrives as in a plain model of the rules, in the same order.
#include "quorin/platform/rx/DistinctUntilChanged.hpp"
#include "quorin/platform/rx/Share.hpp"
#include "quorin/platform/rx/Variable.hpp"

#include "fuzz/Fuzz.hpp"
#include "fuzz/RxModel.hpp"

#include <array>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace quorin::fuzz {
namespace {

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

    Stop subscribe(std::size_t stream, const Handler& handler) {
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
    std::vector<Stop> stops_{};
    World world_{};
};

void check(std::string_view program) {
    require(Run<Real>(program).seen() == Run<RxModel>(program).seen(), "events arrive by the rules");
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size <= 200) quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
