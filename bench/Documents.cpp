#include "bench/Documents.hpp"

#include "quorin/model/Brand.hpp"
#include "quorin/platform/json/Builder.hpp"
#include "quorin/platform/json/Print.hpp"

#include <functional>
#include <random>

namespace quorin::bench {
namespace {

/// Writes a document with values drawn from a fixed sequence.
class Generator {
public:
    std::string document(int brands, int endpoints, int features) {
        object([&] {
            for (int i = 0; i < brands; ++i) {
                builder_.name(Brand(static_cast<Brand::Case>(i)).rawValue());
                object([&] { section(features); });
            }
            map("webservices", "service", endpoints, [&] { service(); });
        });
        return json::print(builder_.finish(), json::Layout::indented);
    }

    std::string grown(int entries) {
        object([&] {
            member("orvel", [&] { map("features", "feature", entries, [&] { feature(); }); });
            map("webservices", "service", entries, [&] { service(); });
        });
        return json::print(builder_.finish(), json::Layout::indented);
    }

private:
    using Fill = std::function<void()>;

    void object(const Fill& fill) {
        const std::size_t begun = builder_.begin();
        fill();
        builder_.endObject(begun);
    }

    void member(const char* name, const Fill& fill) {
        builder_.name(name);
        object(fill);
    }

    void map(const char* name, const std::string& prefix, int count, const Fill& entry) {
        member(name, [&] {
            for (int i = 0; i < count; ++i) member((prefix + std::to_string(i)).c_str(), entry);
        });
    }

    void number(const char* name) {
        builder_.name(name);
        builder_.integer(std::uniform_int_distribution<int>(0, 100000)(random_));
    }

    void flag(const char* name) {
        builder_.name(name);
        builder_.boolean(random_() % 2 == 0);
    }

    std::string words(int count) {
        static constexpr const char* known[] = {"video", "start", "player", "https", "live", "account", "show", "kids"};
        std::string text;
        for (int i = 0; i < count; ++i) (text += text.empty() ? "" : " ") += known[random_() % 8];
        return text;
    }

    void text(const char* name, int count = 2) {
        builder_.name(name);
        builder_.string(words(count));
    }

    void service() {
        member("url", [&] { text("value", 8); });
        builder_.name("method");
        builder_.string(random_() % 2 == 0 ? "get" : "POST");
        member("header", [&] {
            builder_.name("Content-Type");
            builder_.string("application/json");
            builder_.name("Accept");
            builder_.string("application/json");
        });
    }

    void application() {
        for (const char* const name : {"author", "copyright", "email", "link"}) text(name, 4);
        member("version", [&] {
            text("latest", 1);
            text("required", 1);
        });
    }

    void initialize() {
        for (const char* const name :
             {"configRefreshInterval", "sessionRefreshInterval", "compulsiveRewardCount", "geoCacheDuration"})
            number(name);
        for (const char* const name :
             {"isIRateEnabled", "isRateThisAppEnabled", "isMaintenanceState", "compulsiveReward"})
            flag(name);
        for (const char* const name : {"storeLink", "optionalUpdateLink", "forceUpdateLink", "maintenanceMainMessage"})
            text(name, 6);
    }

    void player() {
        for (const char* const name : {"historyInterval", "contentInterval", "contentTimeout"}) number(name);
        for (const char* const name : {"secureExternalOutput", "prerollOnResume", "useGeoCache"}) flag(name);
        text("castRecieverId");
        member("ads", [&] {
            for (const char* const name : {"adbreakUnlock", "freeTime", "overtimeTimeout", "timeout"}) number(name);
            flag("vpaidEnabled");
        });
        member("continuousPlayback", [&] {
            for (const char* const pair : {"timing", "duration"}) {
                member(pair, [&] {
                    number("sf");
                    number("lf");
                });
            }
            number("playlistSize");
            flag("enabled");
        });
    }

    void feature() {
        flag("enabled");
        number("limit");
        text("title", 3);
        member("rules", [&] {
            number("minimum");
            text("audience");
        });
    }

    void suite() {
        for (const char* const name : {"account", "id", "server", "sf_code"}) text(name);
        flag("enabled");
        number("timeout");
    }

    void layout() {
        for (const char* const name : {"initialRequest", "paginationSize", "heroCycleDuration", "successDuration"})
            number(name);
        flag("kidSafeDisplayCategoryMenu");
    }

    void groups() {
        builder_.name("groups");
        const std::size_t begun = builder_.begin();
        for (int i = 0; i < 6; ++i) {
            object([&] {
                text("id", 1);
                text("title", 2);
            });
        }
        builder_.endList(begun);
    }

    void section(int features) {
        member("application", [&] { application(); });
        member("appversion", [&] {
            text("latest", 1);
            text("required", 1);
        });
        member("init", [&] { initialize(); });
        member("common", [&] {
            for (const char* const name : {"termsOfUse", "needMoreInfo", "adChoices", "privacyPolicy"}) text(name, 6);
        });
        member("videoPlayer", [&] { player(); });
        groups();
        map("features", "feature", features, [&] { feature(); });
        map("analytics", "suite", 3, [&] { suite(); });
        map("layouts", "layout", 4, [&] { layout(); });
    }

    json::Builder builder_;
    std::mt19937 random_{20260101};
};

}  // namespace

const std::string& smallDocument() {
    static const std::string& text = *new std::string(Generator().document(1, 8, 3));
    return text;
}

const std::string& largeDocument() {
    static const std::string& text = *new std::string(Generator().document(8, 40, 14));
    return text;
}

const std::string& hugeDocument() {
    static const std::string& text = *new std::string(Generator().document(8, 1000, 800));
    return text;
}

std::vector<std::string> growingDocuments() {
    std::vector<std::string> documents;
    for (const int entries : {3, 7, 20, 70, 200, 700, 2000, 7000, 21000})
        documents.push_back(Generator().grown(entries));
    return documents;
}

}  // namespace quorin::bench
