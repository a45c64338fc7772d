#include "Parts.hpp"

namespace quorin::page {
namespace {

std::string headersOf(const ShownRequest& request) {
    std::string lines;
    for (const auto& [name, value] : request.headers)
        ((lines += document::escapedHTML(name)) += ": ").append(document::escapedHTML(value)).append("<br>");
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
        if (reader.requests.empty()) {
            take("<p>" + element("strong", reader.name) + ": there is no endpoint.</p>");
            continue;
        }
        take("<details><summary>" + element("strong", reader.name) + " (" + std::to_string(reader.requests.size())
             + ")</summary>");
        beginTable("Requests of " + reader.name, {"endpoint", "method", "URL", "headers"}, take);
        for (const ShownRequest& request : reader.requests) take(rowOf(request));
        endTable(take);
        take("</details>");
    }
}

}  // namespace quorin::page
