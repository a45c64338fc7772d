#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// The branded app for which a configuration is loaded, with the codes by which other systems call it.
class Brand {
public:
    static constexpr std::string_view shape = "brand";

    /// In the order of their hash values, 0 to 8.
    enum Case : std::uint8_t { orvel, brisan, caldor, pellow, quintar, tavish, vossen, wexley, unknown };

    constexpr Brand(Case value) : case_(value) {}
    constexpr operator Case() const { return case_; }

    /// The brand that `text` names by one of its aliases, compared exactly; `unknown` for any other text.
    static std::optional<Brand> fromRawValue(std::string_view text);
    static Brand fromRaw(std::string_view text);

    /// Every text that names a brand other than `unknown`.
    static std::vector<std::string_view> spellings();

    std::string_view name() const;  ///< the case's own: "orvel", "brisan", ...
    std::string_view rawValue() const;
    std::string_view ID() const { return rawValue(); }  ///< name of the brand's section in the document
    std::string_view analyticsID() const;
    std::string_view appName() const;
    std::string_view legacyID() const;    ///< three digits
    std::string_view resourceID() const;  ///< a brand without resources of its own bears those of `orvel`
    std::size_t hashValue() const { return case_; }

private:
    Case case_;
};

}  // namespace quorin

template <>
struct std::hash<quorin::Brand> {
    std::size_t operator()(quorin::Brand brand) const noexcept { return brand.hashValue(); }
};

#pragma GCC visibility pop
