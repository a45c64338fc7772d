#pragma once

#include "quorin/platform/rx/Just.hpp"
#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/services/ContentType.hpp"
#include "quorin/services/WebServiceHeaders.hpp"
#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

class APIParams;

/// One endpoint that the app may call.
///
/// The document nests the URL and the media types, writes names in any letter case and may leave the media types out;
/// the archive is flat, exact and complete.
struct WebService {
    std::string name{};
    std::string url{};  ///< a template: request building fills its placeholders
    HTTPMethod method = HTTPMethod::GET;
    ContentType contentTypeHeader = ContentType::urlEncoded;
    std::optional<ContentType> acceptHeader{};  ///< absent: the service sends no "Accept" of its own

    struct Keys {
        static constexpr std::string_view header = "header";
        static constexpr std::string_view name = "name";
        static constexpr std::string_view method = "method";
        static constexpr std::string_view url = "url";
        static constexpr std::string_view value = "value";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<WebService> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<WebService> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const WebService&) const = default;

    /// "Content-Type", and "Accept" when the service has one.
    StringMap headers() const;

    /// A stream that fails at once where the call must not be made: with an `Oops` record, `configNotInitialized` while
    /// the shared manager has no configuration, else `invalidParams` where the parameters are not valid. Absent: go on
    /// and build the request. Any thread.
    template <class T>
    std::optional<rx::Observable<T>> configurationGuard(const APIParams& params) const {
        const auto refusal = refusalOf(params);
        return refusal ? std::optional(rx::error<T>(*refusal)) : std::nullopt;
    }

    static const KeyTable& keyTable();

private:
    static std::optional<rx::Error> refusalOf(const APIParams& params);  // on the floor that knows the manager
};

}  // namespace quorin

#pragma GCC visibility pop
