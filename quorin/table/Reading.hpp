#pragma once

#include "quorin/table/Document.hpp"
#include "quorin/table/ReadReport.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::table {

using json::Node;

/// The two shapes in which a model exists outside memory.
enum class Form : std::uint8_t {
    document,  ///< as the server delivers it: read leniently
    archive,   ///< as `encode()` writes it: read strictly
};

/// What a value is to the one around it, which decides what its loss costs.
enum class Role : std::uint8_t {
    root,
    field,      ///< is absent then
    required,   ///< takes its model with it
    defaulted,  ///< has its default then
    element,    ///< leaves a list of sections alone
    entry,      ///< leaves a map of sections alone
    listPart,   ///< takes the whole list with it
    mapPart,    ///< takes the whole map with it
};

/// One step of the way from the top of a document to a value. The steps form a chain on the stack, which is spelt out
/// as a JSON Pointer only when there is something to tell.
struct Trail {
    const Trail* outer = nullptr;
    std::string_view key{};
    std::size_t index = 0;  ///< of an element, whose key has no data
    Role role = Role::root;
};

struct Step;

/// How a read is done, where it stands, and to whom it tells what it does not take. Where nobody listens there is no
/// trail: values below are read with the same reading, and each step costs one comparison with null.
class Reading {
public:
    /// `tree` holds the nodes that are read and outlives the reading.
    Reading(Form form, const Value& tree, ReadReport* report)
        : tree_(&tree), report_(report), trail_(report ? &top : nullptr), form_(form) {}

    Form form() const { return form_; }
    bool observed() const { return trail_ != nullptr; }

    /// A share in the value at `node`.
    Value valueAt(const Node& node) const { return tree_->at(node); }

    /// The reading of a value below this one. Where somebody listens it stands in `step`, which has to last as long.
    const Reading& member(Step& step, std::string_view key, Role role) const {
        return trail_ ? below(step, {trail_, key, 0, role}) : *this;
    }
    const Reading& element(Step& step, std::size_t index, Role role) const {
        return trail_ ? below(step, {trail_, {}, index, role}) : *this;
    }

    /// Tells that `found` cannot be read as `expected`. Always false, so that a conversion can return it.
    bool reject(std::string_view expected, const Node& found) const {
        return trail_ && tell(expected, nameOf(found.kind));
    }

    /// The same of a number or a boolean, which may stand there in quotes.
    bool rejectNumeric(std::string_view expected, const Node& found) const {
        return trail_ && tell(expected, nameOfNumeric(found));
    }

    /// The same of one of some texts, where none of them stands.
    bool rejectText(std::string_view expected, const Node& found) const {
        return trail_ && tell(expected, found.kind == json::Kind::string ? otherText : nameOf(found.kind));
    }

    /// Tells that a required value is not there. Always false.
    bool miss(std::string_view expected) const { return trail_ && tell(expected, nothing); }

    /// Tells that no reader asks for `found`.
    void notAsked(const Node& found) const;

private:
    friend struct Step;
    Reading() = default;  // of a step that is not taken

    static std::string_view nameOfNumeric(const Node& found);
    const Reading& below(Step& step, const Trail& trail) const;
    bool tell(std::string_view expected, std::string_view found) const;
    void tell(std::string_view expected, std::string_view found, Cost cost) const;

    static constexpr Trail top{};

    const Value* tree_ = nullptr;
    ReadReport* report_ = nullptr;
    const Trail* trail_ = nullptr;
    Form form_ = Form::document;
};

/// Room on the stack for one step of a trail.
struct Step {
    Trail trail{};
    Reading reading{};
};

}  // namespace quorin::table

#pragma GCC visibility pop
