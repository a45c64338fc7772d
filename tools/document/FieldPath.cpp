#include "FieldPath.hpp"

#include "quorin/model/Configuration.hpp"
#include "quorin/platform/json/Parse.hpp"
#include "quorin/table/Conversion.hpp"

#include <algorithm>

namespace quorin::document {
namespace {

using table::Row;

/// The end of the JSON text that stands behind the bracket, in quotes.
std::size_t endOfQuoted(std::string_view text) {
    std::size_t at = 1;
    while (at < text.size() && text[at] != '"') at += text[at] == '\\' ? 2 : 1;
    return std::min(at + 1, text.size());
}

/// Takes what stands in brackets from the begin of `text`.
std::optional<std::string> takeBracketed(std::string_view& text) {
    text.remove_prefix(1);
    const std::size_t end = text.starts_with('"') ? endOfQuoted(text) : text.find(']');
    if (end >= text.size() || text[end] != ']') return std::nullopt;
    std::string inside(text.substr(0, end));
    text.remove_prefix(end + 1);
    if (!inside.starts_with('"')) return inside;
    const auto name = json::parse(inside);
    if (!name) return std::nullopt;
    return std::string(name.value()->node().string());
}

bool isKnown(const Row& row) { return row.read && !row.takesName; }

std::string_view nameOf(const Row& row, bool isInDocument) {
    return isInDocument && !row.outer.empty() ? row.outer : row.key;
}

void append(std::vector<std::string>& to, const std::vector<std::string>& from, std::size_t begin) {
    to.insert(to.end(), from.begin() + static_cast<std::ptrdiff_t>(begin), from.end());
}

/// Follows the steps through the tables.
class Walk {
public:
    Walk(const std::vector<std::string>& steps, bool isInDocument, std::vector<std::string_view>& known)
        : steps_(steps), isInDocument_(isInDocument), known_(known) {}

    std::optional<FieldPath> from(const KeyTable& table) {
        if (steps_.empty() || !goesThrough(table)) return std::nullopt;
        path_.isByDocument = isInDocument_;
        return std::move(path_);
    }

    std::size_t reached() const { return std::min(at_, steps_.size() - 1); }

private:
    bool goesThrough(const KeyTable& table) {
        if (at_ == steps_.size()) return true;
        for (const Row& row : table.rows) {
            if (row.read && row.origin == Row::Origin::whole) return takeAll(row);
        }
        const auto row = std::find_if(table.rows.begin(), table.rows.end(), [&](const Row& one) { return leads(one); });
        if (row != table.rows.end()) return take(*row);
        tellKnown(table);
        return false;
    }

    /// The names beside the step, or those beside the one below it where two lead to a field.
    void tellKnown(const KeyTable& table) {
        for (const Row& row : table.rows) {
            const bool leadsInto = isInDocument_ && !row.outer.empty() && row.outer == steps_[at_];
            if (leadsInto && at_ + 1 < steps_.size()) known_.push_back(row.inner);
        }
        if (!known_.empty()) return;
        for (const Row& row : table.rows) {
            if (isKnown(row)) known_.push_back(nameOf(row, isInDocument_));
        }
    }

    bool leads(const Row& row) const {
        if (!isKnown(row) || nameOf(row, isInDocument_) != steps_[at_]) return false;
        return !isInDocument_ || row.outer.empty() || at_ + 1 == steps_.size() || steps_[at_ + 1] == row.inner;
    }

    /// The members of a feature, which no table knows.
    bool takeAll(const Row& row) {
        path_.archived.emplace_back(row.key);
        append(path_.archived, steps_, at_);
        append(path_.inDocument, steps_, at_);
        return true;
    }

    bool take(const Row& row) {
        const bool isInOther = !row.outer.empty();
        if (isInOther) path_.inDocument.emplace_back(row.outer);
        path_.isAround = isInDocument_ && isInOther && at_ + 1 == steps_.size();
        if (path_.isAround) return path_.archived.clear(), true;
        path_.archived.emplace_back(row.key);
        path_.inDocument.emplace_back(isInOther ? row.inner : row.key);
        at_ += isInDocument_ && isInOther ? 2 : 1;
        const bool holdsMany = row.holds->section && row.holds->shape != table::Conversion<DocumentMap>::shape;
        if (!row.holds->section || (holdsMany && at_ == steps_.size())) return takeRest();
        if (holdsMany) {
            path_.archived.push_back(steps_[at_]);
            path_.inDocument.push_back(steps_[at_++]);
        }
        return goesThrough(row.holds->section());
    }

    /// What stands in a plain value: elements of a list of texts.
    bool takeRest() {
        append(path_.archived, steps_, at_);
        append(path_.inDocument, steps_, at_);
        return true;
    }

    const std::vector<std::string>& steps_;
    const bool isInDocument_;
    std::vector<std::string_view>& known_;
    std::size_t at_ = 0;
    FieldPath path_{};
};

}  // namespace

std::optional<std::vector<std::string>> stepsOfPath(std::string_view text) {
    std::vector<std::string> steps;
    while (!text.empty()) {
        if (text.starts_with('[')) {
            auto inside = takeBracketed(text);
            if (!inside) return std::nullopt;
            steps.push_back(*std::move(inside));
        } else {
            const std::size_t end = std::min(text.find_first_of(".["), text.size());
            if (end == 0) return std::nullopt;
            steps.emplace_back(text.substr(0, end));
            text.remove_prefix(end);
        }
        if (text.starts_with('.') && text.size() > 1)
            text.remove_prefix(1);
        else if (text == ".")
            return std::nullopt;
    }
    return steps;
}

std::optional<FieldPath> fieldAt(const std::vector<std::string>& steps, bool isInDocument,
                                 std::vector<std::string_view>& known, std::size_t* unknown) {
    Walk walk(steps, isInDocument, known);
    auto path = walk.from(Configuration::keyTable());
    if (!path && unknown) *unknown = steps.empty() ? 0 : walk.reached();
    return path;
}

}  // namespace quorin::document
