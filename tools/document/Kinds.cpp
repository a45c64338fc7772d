#include "Kinds.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace quorin::document {

namespace kind {
constexpr FindingKind misspeltMember{"misspelt-member", Severity::warning, "mend the name, letter case included"};
constexpr FindingKind repeatedMember{"repeated-member", Severity::error, "keep one of them"};
constexpr FindingKind noBrand{"no-brand", Severity::warning, "name the section as the brand's raw value"};
constexpr FindingKind noSection{"no-section", Severity::error, "write an object, or leave the brand out"};
constexpr FindingKind moreFindings{"more-findings", Severity::warning, "mend those that are told, and check again"};
constexpr FindingKind unreadableURL{"unreadable-url", Severity::error,
                                    "write a whole http or https URL, percent-encoded, with placeholders as "
                                    "{name}"};
constexpr FindingKind openPlaceholder{"open-placeholder", Severity::error, "write each placeholder as {name}"};
constexpr FindingKind plainHTTP{"plain-http", Severity::warning, "write https"};
constexpr FindingKind noBody{"no-body", Severity::error,
                             "write application/json, application/xml or "
                             "application/x-www-form-urlencoded"};
}  // namespace kind

namespace {

struct Prose {
    std::string_view code, title, cause, example, cure;
};

constexpr std::array prose{
    Prose{"wrong-type", "A value of another type than its field takes",
          "The field is read as if nothing stood there. A list or a map may be "
          "lost as a whole by one wrong element.",
          R"({"auth": {"sso": "yes"}})", R"({"auth": {"sso": true}})"},
    Prose{"value-in-quotes", "A number or a boolean that stands in quotes",
          "Quotes make a text of it, and no text is taken for a number: the "
          "field is absent.",
          R"({"auth": {"initTimeout": "30"}})", R"({"auth": {"initTimeout": 30}})"},
    Prose{"null-value", "A member that is null",
          "Null is no value of any field: it reads as if the member were not "
          "there, which is better said by leaving it "
          "out.",
          R"({"common": {"adChoices": null}})", R"({"common": {}})"},
    Prose{"null-loss", "A null that takes along what is around it",
          "One null loses a whole list or map, or the element or entry that needs a value there.",
          R"({"auth": {"preAuthChannels": ["news", null]}})", R"({"auth": {"preAuthChannels": ["news"]}})"},
    Prose{"out-of-range", "A number that no integer of 64 bits holds", "The field is absent.",
          R"({"auth": {"initTimeout": 1e30}})", R"({"auth": {"initTimeout": 30}})"},
    Prose{"unknown-text", "A text that is none of those that a field takes",
          "The field has its default where it has one; else the section that "
          "needs it is lost.",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/"}, "method": "FETCH"}}})",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/"}, "method": "GET"}}})"},
    Prose{"missing-value", "A required member that is not there",
          "The section that needs it is lost, and what stands in it.", R"({"groups": [{"id": "kids"}]})",
          R"({"groups": [{"id": "kids", "title": "Kids"}]})"},
    Prose{"empty-object", "An object without members where its members are the value",
          "It reads as if it were not there: a feature without members is no "
          "feature.",
          R"({"features": {"chat": {}}})", R"({"features": {"chat": {"enabled": true}}})"},
    Prose{"unknown-member", "A member that no reader asks for",
          "Nothing is lost but what somebody hoped it would do. Notes to other "
          "readers of the document are such members.",
          R"({"published": "2024-06-11"})", R"({})"},
    Prose{"overridden-services", "Web services of a brand beside those of the document",
          "Where the document's root has web services, every brand has those, "
          "and none of its own is read.",
          R"({"webservices": {}, "orvel": {"webservices": {}}})", R"({"webservices": {}, "orvel": {}})"},
    Prose{"misspelt-member", "A member whose name is nearly one that a reader asks for",
          "Names are compared letter by letter, with their case. What stands "
          "under another name is not read.",
          R"({"auth": {"initTimeOut": 30}})", R"({"auth": {"initTimeout": 30}})"},
    Prose{"repeated-member", "A member that stands twice in its object",
          "Of members of one name the last counts, and what stands in the "
          "others is lost.",
          R"({"auth": {"sso": true, "sso": false}})", R"({"auth": {"sso": false}})"},
    Prose{"no-brand", "A section that looks like a brand's and is none",
          "A brand's section stands under its raw value, in just these "
          "letters. Another spelling is no brand's, and the "
          "brand reads the whole document instead.",
          R"({"Orvel": {"auth": {"sso": true}}})", R"({"orvel": {"auth": {"sso": true}}})"},
    Prose{"no-section", "A brand's member that is no object",
          "It makes no section, and the brand reads the whole document instead.", R"({"orvel": []})",
          R"({"orvel": {}})"},
    Prose{"more-findings", "More findings than a report holds",
          "A report holds 10,000 findings, or those whose pointers take 4 MiB together. The others are not told.", "",
          ""},
    Prose{"unreadable-url", "An endpoint whose URL makes no request",
          "Every request to the endpoint fails. Blanks, letters beyond ASCII and "
          "a bad percent sign do not stand in a "
          "URL, "
          "and it begins with http:// or https://.",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/a b"}, "method": "GET"}}})",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/a%20b"}, "method": "GET"}}})"},
    Prose{"open-placeholder", "An endpoint whose URL has a brace without its other one",
          "A placeholder that is not closed is never filled, and no URL has a "
          "brace.",
          R"({"webservices": {"show": {"url": {"value": "https://h.example/{id"}, "method": "GET"}}})",
          R"({"webservices": {"show": {"url": {"value": "https://h.example/{id}"}, "method": "GET"}}})"},
    Prose{"plain-http", "An endpoint without encryption",
          "Anybody between the app and the server can read and change what "
          "travels, the token among it.",
          R"({"webservices": {"login": {"url": {"value": "http://h.example/"}, "method": "GET"}}})",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/"}, "method": "GET"}}})"},
    Prose{"no-body", "A content type for which there is no body", "The endpoint sends its bodies as forms instead.",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/"}, "method": "POST",
    "header": {"Content-Type": "text/plain"}}}})",
          R"({"webservices": {"login": {"url": {"value": "https://h.example/"}, "method": "POST",
    "header": {"Content-Type": "application/json"}}}})"},
};

std::vector<Kind> made() {
    std::vector<FindingKind> known(findingKinds().begin(), findingKinds().end());
    known.insert(known.end(),
                 {kind::misspeltMember, kind::repeatedMember, kind::noBrand, kind::noSection, kind::moreFindings,
                  kind::unreadableURL, kind::openPlaceholder, kind::plainHTTP, kind::noBody});
    constexpr Prose none{};
    std::vector<Kind> kinds;
    for (const FindingKind& finding : known) {
        const auto told =
            std::find_if(prose.begin(), prose.end(), [&](const Prose& one) { return one.code == finding.code; });
        const Prose& words = told == prose.end() ? none : *told;  // whose page has no words then, which the tests see
        kinds.push_back({finding, words.title, words.cause, words.example, words.cure});
    }
    return kinds;
}

}  // namespace

std::span<const Kind> kinds() {
    static const auto& all = *new std::vector<Kind>(made());
    return all;
}

const Kind* kindNamed(std::string_view code) {
    const auto all = kinds();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Kind& kind) { return kind.finding.code == code; });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace quorin::document
