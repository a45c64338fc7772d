#include "quorin/platform/foundation/CookieDate.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace quorin::foundation {
namespace {

using std::chrono::seconds;

constexpr std::array<std::string_view, 12> monthNames{"jan", "feb", "mar", "apr", "may", "jun",
                                                      "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr int firstYear = 1601;

/// All printable ASCII but letters, digits and ":"; and the tab.
bool isDelimiter(char c) {
    return c == '\t' || (c >= ' ' && c <= '/') || (c >= ';' && c <= '@') || (c >= '[' && c <= '`')
           || (c >= '{' && c <= '~');
}

/// Takes the digits that `text` begins with when there are so many; what follows them is no digit.
std::optional<int> takeNumber(std::string_view& text, std::size_t least, std::size_t most) {
    const auto count = std::min(text.find_first_not_of("0123456789"), text.size());
    if (count < least || count > most) return std::nullopt;
    int number = 0;
    for (const char digit : text.substr(0, count)) number = number * 10 + (digit - '0');
    text.remove_prefix(count);
    return number;
}

/// Hours, minutes and seconds, whatever follows them.
struct TimeOfDay {
    int hour = 0;
    int minute = 0;
    int second = 0;

    static std::optional<TimeOfDay> parse(std::string_view token) {
        std::array<int, 3> fields{};
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (i > 0 && !token.starts_with(':')) return std::nullopt;
            if (i > 0) token.remove_prefix(1);
            const auto number = takeNumber(token, 1, 2);
            if (!number) return std::nullopt;
            fields[i] = *number;
        }
        return TimeOfDay{.hour = fields[0], .minute = fields[1], .second = fields[2]};
    }

    bool exists() const { return hour <= 23 && minute <= 59 && second <= 59; }
    seconds sinceMidnight() const { return seconds((hour * 60 + minute) * 60 + second); }
};

std::optional<int> parseDay(std::string_view token) { return takeNumber(token, 1, 2); }

std::optional<int> parseMonth(std::string_view token) {
    const auto* const found = std::ranges::find(monthNames, rawvalues::lowered(token.substr(0, 3)));
    return found == monthNames.end() ? std::nullopt : std::optional(static_cast<int>(found - monthNames.begin()) + 1);
}

/// Numbers below 100 are years from 1970 to 2069.
std::optional<int> parseYear(std::string_view token) {
    const auto number = takeNumber(token, 2, 4);
    if (!number || *number > 99) return number;
    return *number + (*number >= 70 ? 1900 : 2000);
}

/// Fills a part that is missing; false when it is there or the token is none.
template <class Part>
bool fill(std::optional<Part>& part, std::optional<Part> (*parse)(std::string_view), std::string_view token) {
    if (part) return false;
    part = parse(token);
    return part.has_value();
}

/// The parts found so far. A token is the first missing part that it can be, in the order of the section.
struct Parts {
    std::optional<TimeOfDay> time{};
    std::optional<int> day{};
    std::optional<int> month{};
    std::optional<int> year{};

    void add(std::string_view token) {
        static_cast<void>(fill(time, TimeOfDay::parse, token) || fill(day, parseDay, token)
                          || fill(month, parseMonth, token) || fill(year, parseYear, token));
    }
};

std::optional<std::chrono::sys_seconds> momentOf(const Parts& parts) {
    if (!parts.time || !parts.day || !parts.month || !parts.year) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(*parts.year),
                                           std::chrono::month(static_cast<unsigned>(*parts.month)),
                                           std::chrono::day(static_cast<unsigned>(*parts.day)));
    if (*parts.year < firstYear || !date.ok() || !parts.time->exists()) return std::nullopt;
    return std::chrono::sys_days(date) + parts.time->sinceMidnight();
}

}  // namespace

std::optional<std::chrono::sys_seconds> cookieDate(std::string_view text) {
    Parts parts;
    while (!text.empty()) {
        const auto end = std::ranges::find_if(text, isDelimiter);
        const auto length = static_cast<std::size_t>(end - text.begin());
        parts.add(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return momentOf(parts);
}

}  // namespace quorin::foundation
