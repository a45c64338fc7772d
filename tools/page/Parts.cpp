#include "Parts.hpp"

namespace quorin::page {

void beginTable(std::string_view label, std::initializer_list<std::string_view> heads, const LineTaker& take) {
    std::string row;
    for (const std::string_view head : heads) row += "<th scope=\"col\">" + std::string(head) + "</th>";
    take("<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"" + document::escapedHTML(label)
         + "\"><table><thead><tr>" + row + "</tr></thead><tbody>");
}

void endTable(const LineTaker& take) { take("</tbody></table></div>"); }

}  // namespace quorin::page
