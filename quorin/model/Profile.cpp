#include "quorin/model/Profile.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& Profile::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&Profile::defaultAvatarId>(Keys::defaultAvatarId),
        field<&Profile::limit>(Keys::limit),
    };
    static constexpr KeyTable keys = table::of<Profile>("Profile", "Settings of user profiles", rows);
    return keys;
}

std::optional<Profile> Profile::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<Profile>(json, report);
}
std::optional<Profile> Profile::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<Profile>(encoded, report);
}
DocumentMap Profile::encode() const { return section::encode(*this); }

}  // namespace quorin
