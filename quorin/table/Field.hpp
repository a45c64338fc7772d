#pragma once

#include "quorin/table/Conversion.hpp"
#include "quorin/table/HoldingOf.hpp"
#include "quorin/table/Section.hpp"

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

namespace quorin::table {

/// Takes what was read into the member. False, and the member stays, when nothing was.
template <auto Member, class Converted>
bool store(Converted converted, void* model) {
    if (!converted) return false;
    static_cast<typename MemberOf<decltype(Member)>::Record*>(model)->*Member = *std::move(converted);
    return true;
}

/// Reads the member, in the form of the reading.
template <auto Member>
bool readInto(const Node& value, void* model, const Reading& at) {
    return store<Member>(Conversion<typename MemberOf<decltype(Member)>::Value>::read(value, at), model);
}

/// As `readInto`, but a document may hold members of the map that are no objects.
template <auto Member>
bool readLeniently(const Node& value, void* model, const Reading& at) {
    using Map = Conversion<typename MemberOf<decltype(Member)>::Value>;
    return store<Member>(at.form() == Form::document ? Map::readLeniently(value, at) : Map::read(value, at), model);
}

/// Writes the member under `key`; nothing where it is absent.
template <auto Member>
void writeFrom(const void* model, std::string_view key, Builder& into) {
    using Of = MemberOf<decltype(Member)>;
    const auto& member = static_cast<const typename Of::Record*>(model)->*Member;
    if constexpr (Of::optional) {
        if (!member) return;
        into.name(key);
        Conversion<typename Of::Value>::write(*member, into);
    } else {
        into.name(key);
        Conversion<typename Of::Value>::write(member, into);
    }
}

/// The row of a value that is written and never read back: the owner of the model sets it.
template <auto Member>
constexpr Row written(std::string_view key) {
    return {.key = key, .holds = &holdingOf<Member>, .write = &writeFrom<Member>};
}

/// The row of one member: `field<&Ads::freeTime>(Keys::freeTime)`.
template <auto Member>
constexpr Row field(std::string_view key) {
    using Of = MemberOf<decltype(Member)>;

    Row row{.key = key, .holds = &holdingOf<Member>, .read = &readInto<Member>, .write = &writeFrom<Member>};
    row.required = !Of::optional;
    return row;
}

/// The row of a map of sections of which the document may hold members that are no objects: they are left out alone.
template <auto Member>
constexpr Row lenientField(std::string_view key) {
    Row row = field<Member>(key);
    row.read = &readLeniently<Member>;
    row.lenient = true;
    return row;
}

/// Stands for any member when members are counted.
struct AnyMember {
    template <class T>
    operator T() const;
};

/// How many data members a record has.
template <class Record, class... Members>
consteval std::size_t memberCount() {
    if constexpr (requires { Record{Members{}..., AnyMember{}}; })
        return memberCount<Record, Members..., AnyMember>();
    else
        return sizeof...(Members);
}

/// Whether no key and no member has two rows.
constexpr bool distinct(std::span<const Row> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (rows[i].key == rows[j].key || rows[i].write == rows[j].write) return false;
        }
    }
    return true;
}

/// What a model is before anything is read, in the archived form.
template <class Model>
DocumentMap initial() {
    return section::encode(Model());
}

/// Never defined: a call of it while a table is made is the compiler's message.
void twoRowsShareAKeyOrAMember();

/// The key table of a model, one row for every data member. A forgotten or a doubled row does not compile.
/// A model whose members are private says how many it has.
template <class Model, std::size_t members = memberCount<Model>(), std::size_t size>
consteval KeyTable of(std::string_view name, std::string_view purpose, const Row (&rows)[size]) {
    static_assert(size == members, "every data member of the model needs one row");
    if (!distinct(rows)) twoRowsShareAKeyOrAMember();
    return {name, purpose, rows, &initial<Model>};
}

}  // namespace quorin::table
