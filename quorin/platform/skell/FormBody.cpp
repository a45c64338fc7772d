#include "quorin/platform/skell/FormBody.hpp"

#include "quorin/platform/foundation/PercentEscape.hpp"
#include "quorin/platform/json/Members.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/json/UTF8.hpp"

#include <algorithm>
#include <string_view>

namespace quorin::skell {
namespace {

using json::Kind;
using json::Node;

/// The blank is not among them: it becomes "+", which is escaped itself.
constexpr foundation::EscapeSet escapedInForms =
    foundation::EscapeSet::allBut(" *-._0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");

void append(std::string& target, std::string_view text) {
    const std::size_t start = target.size();
    if (!foundation::appendPercentEscaped(target, text, escapedInForms))
        foundation::appendPercentEscaped(target, json::repairedUTF8(text), escapedInForms);
    std::replace(target.begin() + static_cast<std::ptrdiff_t>(start), target.end(), ' ', '+');
}

class Form {
public:
    explicit Form(const json::Value& root) : root_(root) {}

    std::string write() {
        for (const std::uint32_t member : json::byteOrder(root_.node())) {
            name_.clear();
            append(name_, root_.node().name(member).string());
            value(root_.node().value(member));
        }
        return std::move(text_);
    }

private:
    void value(const Node& node) {
        const std::size_t outer = name_.size();
        if (node.kind == Kind::object) {
            for (const std::uint32_t member : json::byteOrder(node)) {
                name_ += '[';
                append(name_, node.name(member).string());
                name_ += ']';
                value(node.value(member));
                name_.resize(outer);
            }
        } else if (node.kind == Kind::list) {
            name_ += "[]";
            for (std::uint32_t i = 0; i < node.size; ++i) value(node.items[i]);
            name_.resize(outer);
        } else {
            pair(node);
        }
    }

    void pair(const Node& scalar) {
        if (!text_.empty()) text_ += '&';
        (text_ += name_) += '=';
        if (scalar.kind == Kind::string)
            append(text_, scalar.string());
        else if (scalar.kind != Kind::null)
            append(text_, json::print(root_.at(scalar)));
    }

    const json::Value& root_;
    std::string name_{};  ///< of the value being written, escaped
    std::string text_{};
};

}  // namespace

std::string formBody(const json::DocumentMap& content) { return Form(content.value()).write(); }

}  // namespace quorin::skell
