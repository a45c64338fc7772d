#include "quorin/model/Common.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& Common::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&Common::termsOfUse>(Keys::termsOfUse),
        field<&Common::needMoreInfo>(Keys::needMoreInfo),
        field<&Common::adChoices>(Keys::adChoices),
        field<&Common::privacyPolicy>(Keys::privacyPolicy),
    };
    static constexpr KeyTable keys = table::of<Common>("Common", "Links to legal texts", rows);
    return keys;
}

std::optional<Common> Common::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<Common>(json, report);
}
std::optional<Common> Common::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<Common>(encoded, report);
}
DocumentMap Common::encode() const { return section::encode(*this); }

}  // namespace quorin
