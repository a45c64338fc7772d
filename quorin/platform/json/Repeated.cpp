#include "quorin/platform/json/Repeated.hpp"

#include "quorin/platform/json/Pointer.hpp"
#include "quorin/platform/json/Scan.hpp"

#include <map>
#include <utility>

namespace quorin::json {
namespace {

constexpr std::size_t mostPointers = 10'000;
constexpr std::size_t mostBytes = std::size_t{4} << 20;

class Pass : private Scan {
public:
    explicit Pass(std::string_view text) : Scan(text) {}

    void value() {
        skipBlanks();
        if (peek() == '{')
            members();
        else if (peek() == '[')
            elements();
        else if (peek() == '"')
            skipString();
        else
            skipPlain();
    }

    Repeated found() && { return std::move(found_); }

private:
    void members() {
        if (!begins('}')) return;
        std::map<std::string, int> times;  // no hash: whoever writes the document chooses the names
        do {
            trail_.push_back(nameIn(skipName()).value_or(""));
            if (++times[trail_.back()] == 2) add();
            value();
            trail_.pop_back();
        } while (more('}'));
    }

    void elements() {
        if (!begins(']')) return;
        std::size_t index = 0;
        do {
            trail_.push_back(std::to_string(index++));
            value();
            trail_.pop_back();
        } while (more(']'));
    }

    void add() {
        std::size_t size = 0;
        for (const std::string& step : trail_) size += 1 + step.size();
        if (found_.pointers.size() == mostPointers || bytes_ + size > mostBytes) return void(++found_.omitted);
        std::string pointer;
        for (const std::string& step : trail_) appendStep(pointer, step);
        bytes_ += pointer.size();
        found_.pointers.push_back(std::move(pointer));
    }

    std::vector<std::string> trail_;
    Repeated found_;
    std::size_t bytes_ = 0;
};

}  // namespace

Repeated repeatedMembers(std::string_view text) {
    Pass pass(withoutMark(text));
    pass.value();
    return std::move(pass).found();
}

}  // namespace quorin::json
