#include "Pairs.hpp"

#include "quorin/platform/foundation/Trimmed.hpp"

namespace quorin::tool {

const CLI::Validator& pair() {
    const auto check = [](const std::string& given) {
        return given.find('=') == given.npos ? std::string("must be a pair, KEY=VALUE") : std::string();
    };
    static const auto& validator = *new CLI::Validator(check, "");
    return validator;
}

StringMap mapOf(const std::vector<std::string>& pairs) {
    StringMap map;
    for (const std::string& pair : pairs) {
        const auto sign = pair.find('=');
        map.insert_or_assign(pair.substr(0, sign), pair.substr(sign + 1));
    }
    return map;
}

json::DocumentMap documentOf(const StringMap& headers) {
    std::vector<json::DocumentMap::Member> members;
    for (const auto& [name, value] : headers) members.emplace_back(name, foundation::trimmed(value));
    return json::DocumentMap(members);
}

CLI::Option& pairOption(CLI::App& app, const std::string& name, std::vector<std::string>& target,
                        const std::string& meaning) {
    const auto take = [&target](const std::string& given) { target.push_back(given); };
    CLI::Option& option = *app.add_option_function<std::string>(name, take, meaning);
    option.multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->trigger_on_parse();
    return *option.type_name("KEY=VALUE")->check(text())->check(pair());
}

}  // namespace quorin::tool
