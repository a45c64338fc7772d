#include "Parts.hpp"

namespace quorin::page {
namespace {

std::string headersOf(const ShownRequest& request) {
    std::string lines;
    for (const auto& [name, value] : request.headers) lines += document::escapedHTML(name + ": " + value) + "<br>";
    return "<details><summary>" + std::to_string(request.headers.size()) + " headers</summary><code>" + lines
           + "</code></details>";
}

std::string rowOf(const ShownRequest& request) {
    return "<tr><th scope=\"row\">" + document::escapedHTML(request.service) + "</th>" + element("td", request.method)
           + "<td>" + element("code", request.url) + "</td><td>" + headersOf(request) + "</td></tr>";
}

}  // namespace

void requestsPart(const Source& source, const LineTaker& take) {
    for (const Reader& reader : source.readers) {
        take("<details><summary>" + element("strong", reader.name) + " (" + std::to_string(reader.requests.size())
             + ")</summary>");
        take(
            "<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"requests\"><table><thead><tr>"
            "<th scope=\"col\">endpoint</th><th scope=\"col\">method</th><th scope=\"col\">URL</th>"
            "<th scope=\"col\">headers</th></tr></thead><tbody>");
        for (const ShownRequest& request : reader.requests) take(rowOf(request));
        take("</tbody></table></div></details>");
    }
}

}  // namespace quorin::page
