#include "quorin/platform/foundation/URL.hpp"
#include "quorin/services/requests/URLEncode.hpp"

#include "Command.hpp"
#include "Pairs.hpp"

namespace quorin::tool {

void addEncode(CLI::App& program, Action& chosen) {
    CLI::App& encode =
        command(program, "encode", "Print the pairs as an encoded query", "quorin encode 'q=a b&c' lang=en");
    const auto given = std::make_shared<std::vector<std::string>>();
    texts(encode, "KEY=VALUE", *given, "A pair; the first = divides").check(pair());
    encode.callback([given, &chosen] {
        chosen = [given](Session& session) -> Outcome {
            const auto query = ConfigurationManagerUtils::urlEncode(mapOf(*given));
            if (!query) return Failure::own("noValue", "there is no pair in UTF-8 to encode; give one: KEY=VALUE");
            session.output.result(*query);
            return {};
        };
    });
}

void addAppend(CLI::App& program, Action& chosen) {
    CLI::App& append = command(program, "append", "Print the URL with PARAM appended as its query",
                               "quorin append 'https://example.com/p?x=2' a=1");
    const auto url = std::make_shared<std::string>();
    const auto param = std::make_shared<std::string>();
    append.add_option("URL", *url, "The URL; one that does not parse is printed as it is")->required()->check(text());
    append.add_option("PARAM", *param, "The text to append, taken as it stands")->required()->check(text());
    append.callback([=, &chosen] {
        chosen = [=](Session& session) -> Outcome {
            std::string appended = *url;
            foundation::append(appended, *param);
            session.output.result(appended);
            return {};
        };
    });
}

}  // namespace quorin::tool
