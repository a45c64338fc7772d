#include "quorin/model/AppVersion.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& AppVersion::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&AppVersion::latest>(Keys::latest),
        field<&AppVersion::required>(Keys::required),
    };
    static constexpr KeyTable keys =
        table::of<AppVersion>("AppVersion", "The app versions that the brand knows of", rows);
    return keys;
}

std::optional<AppVersion> AppVersion::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<AppVersion>(json, report);
}
std::optional<AppVersion> AppVersion::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<AppVersion>(encoded, report);
}
DocumentMap AppVersion::encode() const { return section::encode(*this); }

}  // namespace quorin
