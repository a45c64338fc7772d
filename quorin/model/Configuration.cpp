#include "quorin/model/Configuration.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& Configuration::keyTable() {
    using table::field, table::lenientField, table::written;
    static constexpr table::Row rows[] = {
        written<&Configuration::brand>(Keys::brand),          written<&Configuration::device>(Keys::device),
        written<&Configuration::version>(Keys::version),      field<&Configuration::applicationData>(Keys::application),
        field<&Configuration::features>(Keys::features),      field<&Configuration::webServices>(Keys::webServices),
        field<&Configuration::groups>(Keys::groups),          field<&Configuration::common>(Keys::common),
        field<&Configuration::appVersion>(Keys::appVersion),  field<&Configuration::analytics>(Keys::analytics),
        field<&Configuration::initialize>(Keys::initialize),  field<&Configuration::auth>(Keys::auth),
        field<&Configuration::player>(Keys::videoPlayer),     field<&Configuration::profile>(Keys::profile),
        lenientField<&Configuration::layouts>(Keys::layouts),
    };
    static constexpr KeyTable keys = table::of<Configuration>("Configuration", "The configuration of one brand", rows);
    return keys;
}

std::optional<Configuration> Configuration::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<Configuration>(json, report);
}
std::optional<Configuration> Configuration::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<Configuration>(encoded, report);
}
DocumentMap Configuration::encode() const { return section::encode(*this); }

}  // namespace quorin
