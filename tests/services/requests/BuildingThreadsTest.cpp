#include "quorin/platform/rx/Wait.hpp"

#include "tests/services/requests/Building.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace quorin {
namespace {

/// A value that is seen to be torn, however it is: each letter of it is the same, and it is too long to be held in
/// place.
std::string valueOf(int round) { return std::string(100, static_cast<char>('a' + round % 26)); }

bool isWhole(const std::string& value) { return value.size() == 100 && value == std::string(100, value[0]); }

bool isAgent(const std::string& value) {
    return value.starts_with("Sample/2.4(iPhone9,1; ") && value.size() > 200
           && isWhole(value.substr(value.size() - 100));
}

/// Why the headers of a request are not what some moment's were; empty where they are.
std::string flawOf(const StringMap& headers) {
    for (const char* const name : {"User-Agent", "VEXO-USERTZ", "KOVA", "VEXO-MVPD", "appversion", "Content-Type"})
        if (!headers.contains(name)) return std::string("no ") + name;
    if (headers.size() != 6) return "a header too many";
    if (!isAgent(headers.at("User-Agent"))) return headers.at("User-Agent");
    if (const auto& zone = headers.at("VEXO-USERTZ"); zone.size() != 5 && !isWhole(zone)) return zone;
    for (const char* const name : {"KOVA", "VEXO-MVPD", "appversion"})
        if (!isWhole(headers.at(name))) return headers.at(name);
    return {};
}

class BuildingThreads : public Building {
protected:
    void load(int round) const {
        EXPECT_TRUE(rx::wait(manager_.initialize(PathURL{path_}, {.version = valueOf(round)})));
    }

    void assign(int round) {
        manager_.setKova(valueOf(round));
        manager_.setVEXOMVPD(valueOf(round + 1));
        manager_.setUserZ(valueOf(round + 2));
        manager_.setUserAgent("CFNetwork/" + std::string(100, 'x') + " Darwin" + valueOf(round + 3));
    }

    std::string flawOfNext() const {
        const WebService service{.url = "http://h/{id}", .method = HTTPMethod::POST};
        const Skell request = built({.dictionaryRepresentation = DocumentMap{{"a", 1}},
                                     .mapping = StringMap{{"{id}", "42"}},
                                     .query = StringMap{{"q", "a b"}}},
                                    service);
        if (request.url != "http://h/42?q=a%20b" || request.body->text() != "a=1") return request.url;
        return flawOf(request.headers);
    }

    const support::TemporaryFolder folder_{};
    const std::string path_ = folder_.write("a.json", R"({"common": {"adChoices": "x"}})");
};

TEST_F(BuildingThreads, GetWholeHeadersWhileConfigurationAndIdentityChange) {
    load(0);
    assign(0);
    std::atomic<bool> done = false;
    std::vector<std::string> flaws(3);
    std::vector<std::thread> builders;
    builders.reserve(flaws.size());
    for (std::string& flaw : flaws) {
        builders.emplace_back([&] {
            do flaw = flawOfNext();
            while (!done && flaw.empty());
        });
    }
    std::thread loader([&] {
        for (int round = 1; round < 300; ++round) load(round);
    });
    for (int round = 1; round < 300; ++round) assign(round);
    loader.join();
    done = true;
    for (std::thread& builder : builders) builder.join();
    for (const std::string& flaw : flaws) EXPECT_EQ(flaw, "");
    EXPECT_EQ(flawOfNext(), "");
}

}  // namespace
}  // namespace quorin
