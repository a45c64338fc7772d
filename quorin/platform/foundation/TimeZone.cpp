#include "quorin/platform/foundation/TimeZone.hpp"

#include <time.h>

#include <array>
#include <cstdlib>
#include <ctime>

namespace quorin::foundation {
namespace {

/// East of UTC is positive.
long secondsFromUTC(std::chrono::system_clock::time_point moment) {
    // Not to_time_t(), which overflows for the floor of the clock's first second.
    const std::time_t time = std::chrono::floor<std::chrono::seconds>(moment.time_since_epoch()).count();
    tzset();
    std::tm local{};
    return localtime_r(&time, &local) ? local.tm_gmtoff : 0;
}

void appendTwoDigits(std::string& text, long number) {
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

}  // namespace

std::string utcOffset(std::chrono::system_clock::time_point moment) {
    const long minutes = secondsFromUTC(moment) / 60;
    std::string text(1, minutes < 0 ? '-' : '+');
    appendTwoDigits(text, std::labs(minutes) / 60);
    appendTwoDigits(text, std::labs(minutes) % 60);
    return text;
}

std::string utcTime(std::chrono::system_clock::time_point moment) {
    const std::time_t time = std::chrono::floor<std::chrono::seconds>(moment.time_since_epoch()).count();
    std::tm parts{};
    gmtime_r(&time, &parts);
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

}  // namespace quorin::foundation
