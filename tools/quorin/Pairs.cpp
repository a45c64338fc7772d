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
    return *repeatedText(app, name, target, meaning).type_name("KEY=VALUE")->check(pair());
}

}  // namespace quorin::tool
