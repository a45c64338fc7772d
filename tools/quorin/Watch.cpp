#include "Watch.hpp"

#include "quorin/platform/json/UTF8.hpp"

#include "IdentityNames.hpp"
#include "Joined.hpp"

#include <array>
#include <cstdio>
#include <iostream>
#include <string>

namespace quorin::tool {
namespace {

using Text = std::optional<std::string>;

template <class Value>
rx::Disposable printEvents(Session& session, const rx::Observable<Value>& observer, const char* name, bool revealed) {
    return observer.subscribe({.next = [&session, name, revealed](const Text& value) {
        const json::DocumentMap event{{"name", name}, {"value", shown(value, revealed)}};
        session.output.record(event);
    }});
}

std::array<rx::Disposable, 4> printAllEvents(Session& session, bool revealed) {
    const auto& manager = session.manager();
    return {printEvents(session, manager.kovaObserver(), "kova", revealed),
            printEvents(session, manager.parentProfileIDObserver(), "parentProfileID", true),
            printEvents(session, manager.childProfileIDObserver(), "childProfileID", true),
            printEvents(session, manager.profileJWTObserver(), "profileJWT", revealed)};
}

/// Yields false, with nothing assigned, for a line that names no value, or leaves one absent that cannot be.
bool assign(ConfigurationManager::Instance& manager, const std::string& line) {
    const auto blank = line.find(' ');
    const auto* const name = IdentityName::find(line.substr(0, blank));
    const Text value = blank == line.npos ? std::nullopt : Text(line.substr(blank + 1));
    if (!name || (!value && !name->optional) || !json::isUTF8(line)) return false;
    name->assign(manager, value);
    return true;
}

std::string passedOver() {
    return " is passed over; a line is NAME VALUE, in UTF-8, or NAME alone to make one of "
           + joined(IdentityName::all(true), ", ") + " absent; NAME is one of "
           + joined(IdentityName::all(false), ", ");
}

}  // namespace

Outcome watch(Session& session, bool revealed) {
    auto subscriptions = printAllEvents(session, revealed);
    std::string line;
    for (std::size_t number = 1; session.output.flush() == 0 && std::getline(std::cin, line); ++number) {
        if (!assign(session.manager(), line)) session.output.warn("line " + std::to_string(number) + passedOver());
    }
    for (auto& subscription : subscriptions) subscription.dispose();
    if (std::ferror(stdin) != 0) return Failure::own("file", "cannot read standard input; give it lines of NAME VALUE");
    return {};
}

}  // namespace quorin::tool
