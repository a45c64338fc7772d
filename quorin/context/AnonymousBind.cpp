#include "quorin/context/AnonymousBind.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& AnonymousBind::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&AnonymousBind::profileID>(Keys::profileID),
        field<&AnonymousBind::profileJWT>(Keys::profileJWT),
    };
    static constexpr KeyTable keys =
        table::of<AnonymousBind>("AnonymousBind", "A profile and the token that the profile service gave for it", rows);
    return keys;
}

std::optional<AnonymousBind> AnonymousBind::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<AnonymousBind>(json, report);
}
std::optional<AnonymousBind> AnonymousBind::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<AnonymousBind>(encoded, report);
}
DocumentMap AnonymousBind::encode() const { return section::encode(*this); }

}  // namespace quorin
