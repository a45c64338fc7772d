#include "quorin/platform/rx/Wait.hpp"
#include "quorin/services/requests/Skell.hpp"

#include "Command.hpp"
#include "DocumentSource.hpp"
#include "Source.hpp"
#include "StandardInput.hpp"
#include "tools/page/Page.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace quorin::tool {
namespace {

struct Arguments {
    std::vector<std::string> sources{};
    std::string file{};
};

/// An app that was never used: its requests bear no identity.
class FreshApp {
public:
    explicit FreshApp(const Session& session) : manager_(platformOf(session)) {}

    /// The requests for all endpoints that the brand's apps see in the document at `path`, in the order of their names.
    std::vector<page::ShownRequest> requests(const std::string& path, std::optional<Brand> brand) const {
        std::vector<page::ShownRequest> requests;
        const auto loaded = rx::wait(manager_.initialize(PathURL{path}, {.brand = brand}));
        if (!loaded || !(*loaded)->webServices) return requests;
        for (const auto& [name, service] : *(*loaded)->webServices) requests.push_back(shown(name, service));
        return requests;
    }

private:
    class NoParams final : public APIParams {
    public:
        bool hasValidParams() const override { return true; }
    };

    static Platform platformOf(const Session& session) {
        Platform platform = session.platform();
        platform.store = std::make_shared<MorrStandard>(morr::Options{.path = std::string(morr::memoryPath)});
        return platform;
    }

    page::ShownRequest shown(const std::string& name, const WebService& service) const {
        const Skell request = Skell::build(NoParams(), service, manager_);
        return {.service = name,
                .method = std::string(request.method.rawValue()),
                .url = request.url,
                .headers = {request.headers.begin(), request.headers.end()}};
    }

    ConfigurationManager::Instance manager_;
};

std::vector<page::Reader> readersOf(const Document& document, const FreshApp& app) {
    std::vector<page::Reader> readers;
    const std::string path = keptPath(document.text);
    for (const auto& brands : document::alike({&document.map, 1}, document::allBrands())) {
        const auto view = document::viewOf(document.map, brands);
        const bool isOwn = !view.section.name.empty();
        readers.push_back({.name = isOwn ? document::namesOf(brands) : std::string(document::wholeDocument),
                           .values = view.values(),
                           .requests = app.requests(path, brands.front())});
    }
    return readers;
}

std::vector<document::BrandChanges> changesOf(const std::vector<page::Source>& sources) {
    std::vector<document::BrandChanges> all;
    if (sources.size() != 2) return all;
    const std::array<DocumentMap, 2> documents{sources[0].map, sources[1].map};
    for (const auto& brands : document::alike(documents, document::allBrands())) {
        auto before = document::viewOf(documents[0], brands);
        auto after = document::viewOf(documents[1], brands);
        auto changes = document::changesBetween(before, after);
        all.push_back({std::move(before), std::move(after), std::move(changes)});
    }
    return all;
}

/// A page in the place of the document that it is about would be a loss.
bool isAnyOf(const std::vector<std::string>& sources, const std::string& path) {
    return std::any_of(sources.begin(), sources.end(), [&](const std::string& source) {
        std::error_code none;
        return std::filesystem::equivalent(source, path, none);
    });
}

Outcome writeTo(const std::string& path, const std::string& text) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), &std::fclose);
    const bool isWritten =
        file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() && std::fflush(file.get()) == 0;
    if (isWritten) return {};
    return Failure::own("file", "cannot write " + calledFile(path) + ": "
                                    + std::error_code(errno, std::generic_category()).message()
                                    + "; name a file that can be written");
}

Outcome report(const Arguments& arguments, Session& session) {
    if (isAnyOf(arguments.sources, arguments.file))
        return Failure::usage("the page cannot take the place of its own SOURCE; name another FILE");
    const FreshApp app(session);
    std::vector<page::Source> sources;
    for (const std::string& name : arguments.sources) {
        auto read = documentAt(name, session);
        if (auto* failure = std::get_if<Failure>(&read)) return *failure;
        auto& document = std::get<Document>(read);
        auto readers = readersOf(document, app);
        auto checked = document::check(document.map, document.text, document::allBrands());
        sources.push_back(
            {calledFile(name), std::move(document.text), document.map, std::move(checked), std::move(readers)});
    }
    std::string html;
    page::write(sources, changesOf(sources), [&](const std::string& line) { (html += withoutControls(line)) += '\n'; });
    if (arguments.file == "-") return session.output.text(html), std::nullopt;
    return writeTo(arguments.file, html);
}

}  // namespace

void addReport(CLI::App& program, Action& chosen) {
    CLI::App& made = command(program, "report", "Write a page on documents: findings, brands, requests and changes",
                             "quorin report old.json new.json -o report.html");
    const auto arguments = std::make_shared<Arguments>();
    addSources(made, arguments->sources);
    made.add_option("-o,--output", arguments->file, "The file of the page; - is standard output")
        ->type_name("FILE")
        ->required();
    made.callback(
        [arguments, &chosen] { chosen = [arguments](Session& session) { return report(*arguments, session); }; });
}

}  // namespace quorin::tool
