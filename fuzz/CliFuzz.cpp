// Lines as the arguments of the program, in this process: it ends with a status of its own, and says why in lines
// without control characters. "@d" is a file with a document, "@b" one that is broken and "@s" one for a store; no
// other store is named. A request fails before a socket is opened.
#include "quorin/platform/json/Parse.hpp"

#include "fuzz/Fuzz.hpp"
#include "fuzz/Scratch.hpp"
#include "tools/quorin/Program.hpp"

#include <stdlib.h>

#include <array>
#include <cstdio>
#include <optional>
#include <vector>

namespace quorin::fuzz {
namespace {

constexpr std::string_view document =
    R"({"orvel": {"webservices": {"s": {"name": "s", "url": {"value": "http://h.example/{id}"}, "method": "POST"}},)"
    R"("features": {"f": {"enabled": true}}, "videoPlayer": {"ads": {"freeTime": "x"}}, "profile": {}, "id": "i"}})";

/// What is written to a standard stream while this lives.
class Captured {
public:
    explicit Captured(FILE*& stream) : stream_(stream), before_(stream), file_(open_memstream(&text_, &size_)) {
        require(file_ != nullptr, "there is memory for an output");
        stream_ = file_;
    }
    ~Captured() {
        stream_ = before_;
        fclose(file_);
        free(text_);
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    std::string_view text() {
        fflush(file_);
        return {text_, size_};
    }

private:
    FILE*& stream_;
    FILE* before_;
    char* text_ = nullptr;
    std::size_t size_ = 0;
    FILE* file_;
};

struct Variable {
    const char* name;
    const char* value;
};

/// No user's store, no settings of this machine, and a proxy that the HTTP library knows no way to.
constexpr std::array variables{
    Variable{"QUORIN_STORE", ":memory:"},   Variable{"HOME", "/nonexistent"},     Variable{"http_proxy", "none://none"},
    Variable{"https_proxy", "none://none"}, Variable{"all_proxy", "none://none"}, Variable{"no_proxy", ""},
};
constexpr std::array strangers{"HTTPS_PROXY",           "ALL_PROXY",           "NO_PROXY",
                               "XDG_DATA_HOME",         "QUORIN_BUNDLE_NAME",  "QUORIN_BUNDLE_VERSION",
                               "QUORIN_LOCALE",         "QUORIN_DEVICE_MODEL", "QUORIN_SYSTEM_NAME",
                               "QUORIN_SYSTEM_VERSION", "QUORIN_TIMEOUT",      "QUORIN_MAX_BODY",
                               "QUORIN_CA_FILE",        "QUORIN_COMPACT",      "QUORIN_ERRORS"};

void prepare() {
    for (const auto& [name, value] : variables) setenv(name, value, 1);
    for (const char* const name : strangers) unsetenv(name);
    require(freopen("/dev/null", "r", stdin) != nullptr, "there is an empty input");
}

/// A word with the file that it stands for.
std::string resolved(std::string word) {
    const auto at = word.ends_with("@d") || word.ends_with("@b") || word.ends_with("@s") ? word.size() - 2 : word.npos;
    if (at == word.npos || (at > 0 && word[at - 1] != '=')) return word;
    return word.substr(0, at) + scratch().file(word.substr(at + 1));
}

/// Whether the words name no store but the one for that; any other would be made, wherever it is.
bool areHarmless(const std::vector<std::string>& words) {
    const auto isOwn = [](std::string_view name) { return name == "@s" || name == ":memory:"; };
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word.find("/dev") != word.npos || word.find("/proc") != word.npos) return false;  // some have no end
        if (!word.starts_with("--store")) continue;
        const bool isNext = word == "--store" && i + 1 < words.size() && isOwn(words[i + 1]);
        if (!isNext && !(word.starts_with("--store=") && isOwn(word.substr(8)))) return false;
    }
    return true;
}

void checkErrors(std::string_view text, int status) {
    require(status >= 0 && status <= 2, "the program ends with a status of its own");
    require(text.empty() || text.ends_with('\n'), "what is said ends with its line");
    for (const char c : text) require(c == '\n' || !isControl(c), "what is said has no control characters");
    require(!hasC1(text), "what is said has none of the later control characters");
    require(status != 2 || text.find("quorin: ") != text.npos || text.find("{\"") != text.npos, "a wrong use is told");
}

/// Letters may stand together behind one dash.
bool asksForHelp(const std::vector<std::string>& words) {
    return std::any_of(words.begin(), words.end(),
                       [](const std::string& word) { return word.starts_with("-h") || word == "--help"; });
}

struct Ending {
    int status = 0;
    std::string output{};
    std::string errors{};
};

Ending run(const std::vector<std::string>& words) {
    std::vector<std::string> texts{"quorin"};
    for (const std::string& word : words) texts.push_back(resolved(word));
    std::vector<const char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) pointers.push_back(text.c_str());
    pointers.push_back(nullptr);
    Captured output(stdout), errors(stderr);
    const int status = tool::runProgram(static_cast<int>(texts.size()), pointers.data());
    return {status, std::string(output.text()), std::string(errors.text())};
}

void check(std::string_view input) {
    std::vector<std::string> words;
    for (Lines lines(input); !lines.isAtEnd();) words.push_back(lines.next());
    if (!areHarmless(words)) return;
    const Ending ending = run(words);
    if (ending.status == 0 && !words.empty() && words[0] == "load" && !asksForHelp(words))
        require(static_cast<bool>(json::parse(ending.output)), "what is loaded is printed as JSON");
    checkErrors(ending.errors, ending.status);
}

bool isPrepared() {
    prepare();
    scratch().write("d", document);
    scratch().write("b", "{\"orvel\": [1,}");
    return true;
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const bool isPrepared = quorin::fuzz::isPrepared();
    if (isPrepared && size <= 4096) quorin::fuzz::check(quorin::fuzz::textOf(bytes, size));
    return 0;
}
