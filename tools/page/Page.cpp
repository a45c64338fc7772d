#include "Page.hpp"

#include "quorin/platform/foundation/Base64.hpp"
#include "quorin/platform/foundation/SHA256.hpp"

#include "Parts.hpp"
#include "Script.hpp"
#include "Style.hpp"

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

void takeHead(const LineTaker& take) {
    take("<!DOCTYPE html>");
    take("<html lang=\"en\">");
    take("<head>");
    take("<meta charset=\"utf-8\">");
    take(
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'; "
        "script-src '"
        + hashOfScript() + "'\">");
    take("<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">");
    take("<meta name=\"color-scheme\" content=\"light dark\">");
    take("<title>Configuration report</title>");
    takeLines("style", style, take);
    take("</head>");
}

void takeLinks(std::span<const Source> sources, bool hasChanges, const LineTaker& take) {
    take("<a class=\"skip\" href=\"#main\">To the content</a>");
    take("<nav aria-label=\"parts\"><ul>");
    for (std::size_t i = 0; i < sources.size(); ++i)
        take("<li><a href=\"#s" + std::to_string(i) + "\">" + document::escapedHTML(sources[i].name) + "</a></li>");
    if (hasChanges) take("<li><a href=\"#changes\">What changes</a></li>");
    take("</ul></nav>");
}

void takeMatrix(const Source& source, const std::string& id, const LineTaker& take) {
    const auto matrix = document::Matrix::of(source.map);
    take(element("p",
                 "Outliers differ from the value that more than half of the brands with a section of their own have. "
                     + document::legend(matrix)));
    document::htmlTable(matrix, source.name, id + "-caption", take);
}

void takeSource(const Source& source, const std::string& id, const LineTaker& take) {
    take("<section id=\"" + id + "\">");
    take(element("h2", source.name));
    take("<h3>Findings</h3>");
    findingsPart(source, id, take);
    take("<h3>What the apps of each brand see</h3>");
    takeMatrix(source, id, take);
    take("<h3>Each brand as a tree</h3>");
    readersPart(source, id, take);
    take("<h3>Requests as they would be sent</h3>");
    requestsPart(source, take);
    take("</section>");
}

}  // namespace

void write(std::span<const Source> sources, std::span<const document::BrandChanges> changes, const LineTaker& take) {
    takeHead(take);
    take("<body>");
    takeLinks(sources, !changes.empty(), take);
    take("<main id=\"main\">");
    take("<h1>Configuration report</h1>");
    take("<p>The keys j and k go from finding to finding.</p>");
    for (std::size_t i = 0; i < sources.size(); ++i) takeSource(sources[i], "s" + std::to_string(i), take);
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
