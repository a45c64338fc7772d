#include "quorin/model/Auth.hpp"

#include "quorin/table/Field.hpp"

namespace quorin {

const KeyTable& Auth::keyTable() {
    using table::field;
    static constexpr table::Row rows[] = {
        field<&Auth::authZErrorMessage>(Keys::authZErrorMessage),
        field<&Auth::authUrl>(Keys::authUrl),
        field<&Auth::requestorId>(Keys::requestorId),
        field<&Auth::initTimeout>(Keys::initTimeout),
        field<&Auth::sso>(Keys::sso),
        field<&Auth::preAuthChannels>(Keys::preAuthChannels),
        field<&Auth::promptLimit>(Keys::promptLimit),
    };
    static constexpr KeyTable keys = table::of<Auth>("Auth", "Settings of sign-in and authorisation", rows);
    return keys;
}

std::optional<Auth> Auth::fromJSON(const DocumentMap& json, ReadReport* report) {
    return section::fromJSON<Auth>(json, report);
}
std::optional<Auth> Auth::fromEncoded(const DocumentMap& encoded, ReadReport* report) {
    return section::fromEncoded<Auth>(encoded, report);
}
DocumentMap Auth::encode() const { return section::encode(*this); }

}  // namespace quorin
