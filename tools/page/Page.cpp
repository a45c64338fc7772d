#include "Page.hpp"

#include "quorin/platform/foundation/Base64.hpp"
#include "quorin/platform/foundation/SHA256.hpp"

#include "Parts.hpp"
#include "Script.hpp"
#include "Style.hpp"

#include <algorithm>

namespace quorin::page {
namespace {

unsigned char digit(char c) { return static_cast<unsigned char>(c <= '9' ? c - '0' : c - 'a' + 10); }

/// The one script that the browser runs, whatever else stands in the page (Content Security Policy Level 3, section
/// 6.7.3.3).
std::string hashOfScript() {
    const std::string hex = foundation::sha256Hex("\n" + std::string(script));
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>((digit(hex[i]) << 4U) | digit(hex[i + 1]));
    return "sha256-" + foundation::base64(bytes);
}

/// What stands between the tags, each on a line of its own.
void takeLines(const std::string& tag, std::string_view text, const LineTaker& take) {
    take("<" + tag + ">");
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        take(std::string(text.substr(0, end)));
        text.remove_prefix(end + 1);
    }
    take("</" + tag + ">");
}

constexpr std::string_view heading = "Configuration report";

std::string titleOf(std::span<const Source> sources) {
    std::string names;
    for (const Source& source : sources) names += (names.empty() ? "" : ", ") + source.name;
    return names + " - " + std::string(heading);
}

void takeHead(std::span<const Source> sources, const LineTaker& take) {
    take("<!DOCTYPE html>");
    take("<html lang=\"en\">");
    take("<head>");
    take("<meta charset=\"utf-8\">");
    take(
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; base-uri 'none'; "
        "form-action 'none'; style-src 'unsafe-inline'; "
        "script-src '"
        + hashOfScript() + "'\">");
    take("<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">");
    take("<meta name=\"color-scheme\" content=\"light dark\">");
    take(element("title", titleOf(sources)));
    takeLines("style", style, take);
    take("</head>");
}

std::string idOf(std::size_t number) { return "s" + std::to_string(number); }

std::string link(const std::string& id, std::string_view text) {
    return "<a href=\"#" + id + "\">" + document::escapedHTML(text) + "</a>";
}

/// A part of what is told of a source, and its short name among the links.
struct Part {
    std::string_view id{};
    std::string_view link{};
    std::string_view heading{};

    std::string idIn(const std::string& source) const { return source + "-" + std::string(id); }
    std::string html(const std::string& source) const {
        return "<h3 id=\"" + idIn(source) + "\">" + std::string(heading) + "</h3>";
    }
};

constexpr Part findings{"findings", "Findings", "Findings"};
constexpr Part fields{"fields", "Fields", "What the apps of each brand see"};
constexpr Part trees{"trees", "Trees", "Each brand as a tree"};
constexpr Part requests{"requests", "Requests", "Requests as they would be sent"};

void takeLinks(std::span<const Source> sources, bool hasChanges, const LineTaker& take) {
    take("<a class=\"skip\" href=\"#main\">To the content</a>");
    take("<nav aria-label=\"parts\"><ul>");
    for (std::size_t i = 0; i < sources.size(); ++i) {
        take("<li>" + link(idOf(i), sources[i].name) + "<ul>");
        for (const Part& part : {findings, fields, trees, requests})
            take("<li>" + link(part.idIn(idOf(i)), part.link) + "</li>");
        take("</ul></li>");
    }
    if (hasChanges) take("<li>" + link("changes", "What changes") + "</li>");
    take("</ul></nav>");
}

/// What it comes to, at a glance.
void takeSummary(std::span<const Source> sources, std::span<const document::BrandChanges> changes,
                 const LineTaker& take) {
    take("<ul class=\"summary\">");
    for (std::size_t i = 0; i < sources.size(); ++i)
        take("<li>" + link(idOf(i), sources[i].name) + " " + findingsInWords(sources[i]) + "</li>");
    if (!changes.empty()) take("<li>" + link("changes", "What changes") + " " + changesInWords(changes) + "</li>");
    take("</ul>");
    const bool hasFindings =
        std::ranges::any_of(sources, [](const Source& one) { return !one.checked.diagnoses.empty(); });
    if (hasFindings) take("<p class=\"hint keys\" hidden>The keys j and k go from finding to finding.</p>");
}

void takeMatrix(const Source& source, const std::string& id, const LineTaker& take) {
    const auto matrix = document::Matrix::of(source.map);
    if (matrix.rows().empty()) return take("<p>Nothing that a reader takes.</p>");
    take(element("p",
                 "Outliers differ from the value that more than half of the brands with a section of their own have. "
                     + document::legend(matrix)));
    document::htmlTable(matrix, source.name, id + "-caption", take);
}

void takeSource(const Source& source, const std::string& id, const LineTaker& take) {
    take("<section id=\"" + id + "\">");
    take(element("h2", source.name));
    take(findings.html(id));
    findingsPart(source, id, take);
    take("<div class=\"fields\">");
    take(fields.html(id));
    takeMatrix(source, id, take);
    take("</div>");
    take(trees.html(id));
    readersPart(source, id, take);
    take(requests.html(id));
    requestsPart(source, take);
    take("</section>");
}

}  // namespace

void write(std::span<const Source> sources, std::span<const document::BrandChanges> changes, const LineTaker& take) {
    takeHead(sources, take);
    take("<body>");
    takeLinks(sources, !changes.empty(), take);
    take("<main id=\"main\">");
    take(element("h1", heading));
    takeSummary(sources, changes, take);
    for (std::size_t i = 0; i < sources.size(); ++i) takeSource(sources[i], idOf(i), take);
    if (!changes.empty()) {
        take("<section id=\"changes\"><h2>What changes</h2>");
        changesPart(changes, take);
        take("</section>");
    }
    take("</main>");
    takeLines("script", script, take);
    take("</body>");
    take("</html>");
}

}  // namespace quorin::page
