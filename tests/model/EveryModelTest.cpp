#include "tests/model/FieldCases.hpp"
#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {
namespace {

/// Holds for every model all of whose fields may be absent.
template <class Model>
class EveryModel : public testing::Test {};

struct Names {
    template <class Model>
    static std::string GetName(int) {
        return std::string(Model::keyTable().name);
    }
};

using Models = testing::Types<Configuration, Initialize, AppVersion, ApplicationData, Common, Auth, Profile, Player,
                              Ads, ContinuousPlayback, Timing, Duration, AnalyticSuite, ConfigLayout>;
TYPED_TEST_SUITE(EveryModel, Models, Names);

template <class Model>
Model with(const FieldCase<Model>& field) {
    Model model;
    field.set(model);
    return model;
}

/// The documents of the type's fields, each with `value` in place of the good one.
template <class Model>
std::vector<DocumentMap> documentsWith(const Value& value, FieldType type) {
    std::vector<DocumentMap> documents;
    for (const FieldCase<Model>& field : fieldsOf<Model>()) {
        if (field.type == type) documents.push_back(DocumentMap{{object(field.document).at(0).first, value}});
    }
    return documents;
}

template <class Model>
void expectAbsent(const Value& value, FieldType type) {
    for (const DocumentMap& document : documentsWith<Model>(value, type)) {
        EXPECT_EQ(Model::fromJSON(document), Model{}) << json::print(document);
        EXPECT_EQ(Model::fromEncoded(document), Model{}) << json::print(document);
    }
}

/// Every field of the type that is read from `value` is written as `written`.
template <class Model>
void expectWritten(const Value& value, FieldType type, const Value& written) {
    for (const DocumentMap& document : documentsWith<Model>(value, type)) {
        const DocumentMap expected{{document.at(0).first, written}};
        EXPECT_EQ(json::print(Model::fromJSON(document)->encode()), json::print(expected));
        EXPECT_EQ(json::print(Model::fromEncoded(document)->encode()), json::print(expected));
    }
}

TYPED_TEST(EveryModel, HasOneCaseForEachFieldThatIsRead) {
    std::size_t rows = 0;
    for (const table::Row& row : TypeParam::keyTable().rows) {
        if (row.read && row.origin == table::Row::Origin::member) ++rows;
    }
    EXPECT_EQ(fieldsOf<TypeParam>().size(), rows);
}

TYPED_TEST(EveryModel, ReadsEachKeyIntoItsField) {
    for (const auto& field : fieldsOf<TypeParam>())
        EXPECT_EQ(readDocument<TypeParam>(field.document), with(field)) << field.document;
}

TYPED_TEST(EveryModel, ReadsEachArchivedKeyIntoItsField) {
    for (const auto& field : fieldsOf<TypeParam>())
        EXPECT_EQ(readArchive<TypeParam>(field.archive), with(field)) << field.archive;
}

TYPED_TEST(EveryModel, WritesEachFieldUnderItsKey) {
    for (const auto& field : fieldsOf<TypeParam>()) EXPECT_EQ(json::print(with(field).encode()), field.archive);
}

TYPED_TEST(EveryModel, DiffersWhenOneFieldDiffers) {
    for (const auto& field : fieldsOf<TypeParam>()) {
        EXPECT_NE(with(field), TypeParam{}) << field.document;
        for (const auto& other : fieldsOf<TypeParam>()) {
            EXPECT_EQ(with(field) == with(other), field.document == other.document) << field.document << other.document;
        }
    }
}

TYPED_TEST(EveryModel, ReadsAllFieldsAtOnce) {
    TypeParam expected;
    DocumentMap archive;
    for (const auto& field : fieldsOf<TypeParam>()) {
        field.set(expected);
        archive = archive.with(object(field.archive).at(0).first, object(field.archive).at(0).second);
    }
    EXPECT_EQ(TypeParam::fromEncoded(archive), expected);
    EXPECT_EQ(expected.encode(), archive);
}

TYPED_TEST(EveryModel, ExistsWithoutAnyField) {
    EXPECT_EQ(readDocument<TypeParam>("{}"), TypeParam{});
    EXPECT_EQ(readArchive<TypeParam>("{}"), TypeParam{});
    EXPECT_EQ(json::print(TypeParam{}.encode()), "{}");
}

TYPED_TEST(EveryModel, LeavesAFieldAbsentThatIsNull) {
    for (const auto& field : fieldsOf<TypeParam>()) {
        const DocumentMap document{{object(field.document).at(0).first, nullptr}};
        EXPECT_EQ(TypeParam::fromJSON(document), TypeParam{}) << json::print(document);
        EXPECT_EQ(TypeParam::fromEncoded(document), TypeParam{}) << json::print(document);
    }
}

TYPED_TEST(EveryModel, ComparesKeysLetterForLetter) {
    for (const auto& field : fieldsOf<TypeParam>()) {
        std::string key(object(field.document).at(0).first);
        key[0] = static_cast<char>(key[0] - 'a' + 'A');
        EXPECT_EQ(TypeParam::fromJSON(DocumentMap{{key, object(field.document).at(0).second}}), TypeParam{}) << key;
    }
}

TYPED_TEST(EveryModel, ReadsTheFieldsBesideAWrongOne) {
    const auto fields = fieldsOf<TypeParam>();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto& good = fields[(i + 1) % fields.size()];
        const DocumentMap document = object(good.document).with(object(fields[i].document).at(0).first, Value());
        EXPECT_EQ(TypeParam::fromJSON(document), document.size() == 2 ? with(good) : TypeParam{})
            << json::print(document);
    }
}

TYPED_TEST(EveryModel, TakesNumbersAndBooleansIntoIntegerFields) {
    const auto expect = [](const Value& value, Integer written) {
        expectWritten<TypeParam>(value, FieldType::integer, written);
    };
    expect(30, 30);
    expect(30.9, 30);
    expect(-30.9, -30);
    expect(-0.5, 0);
    expect(true, 1);
    expect(false, 0);
    expect(9223372036854775807, 9223372036854775807);
    expect(-9223372036854775808.0, std::numeric_limits<Integer>::min());
    expect(9223372036854774784.0, 9223372036854774784);
}

TYPED_TEST(EveryModel, LeavesIntegerFieldsAbsentForOtherValues) {
    for (const Value& value :
         {Value("30"), Value(""), Value(1e30), Value(-1e30), Value(std::uint64_t{1} << 63U),
          Value(9223372036854775808.0), Value(-9223372036854777856.0), Value(List{1}), Value(DocumentMap{})})
        expectAbsent<TypeParam>(value, FieldType::integer);
}

TYPED_TEST(EveryModel, TakesNumbersAndBooleansIntoBooleanFields) {
    for (const Value& value : {Value(true), Value(1), Value(2), Value(-1), Value(0.5), Value(1e-300), Value(1e30),
                               Value(std::uint64_t{1} << 63U)})
        expectWritten<TypeParam>(value, FieldType::boolean, true);
    for (const Value& value : {Value(false), Value(0), Value(0.0), Value(-0.0)})
        expectWritten<TypeParam>(value, FieldType::boolean, false);
}

TYPED_TEST(EveryModel, WritesBooleansAsBooleansAndIntegersAsIntegers) {
    for (const DocumentMap& document : documentsWith<TypeParam>(1, FieldType::boolean))
        EXPECT_EQ(TypeParam::fromJSON(document)->encode().at(0).second.kind(), json::Kind::boolean);
    for (const DocumentMap& document : documentsWith<TypeParam>(true, FieldType::integer))
        EXPECT_EQ(TypeParam::fromJSON(document)->encode().at(0).second.kind(), json::Kind::integer);
}

TYPED_TEST(EveryModel, LeavesBooleanFieldsAbsentForOtherValues) {
    for (const Value& value : {Value("true"), Value("false"), Value("1"), Value(List{}), Value(DocumentMap{})})
        expectAbsent<TypeParam>(value, FieldType::boolean);
}

TYPED_TEST(EveryModel, TakesAnyTextIntoStringFields) {
    for (const Value& value : {Value(""), Value("30"), Value("\xE2\x82\xAC\n"), Value(std::string(100'000, 'x'))})
        expectWritten<TypeParam>(value, FieldType::string, value);
}

TYPED_TEST(EveryModel, LeavesStringFieldsAbsentForOtherValues) {
    for (const Value& value : {Value(30), Value(true), Value(List{"x"}), Value(DocumentMap{})})
        expectAbsent<TypeParam>(value, FieldType::string);
}

TYPED_TEST(EveryModel, TakesTextsIntoListsOfStrings) {
    for (const Value& value : {Value(List{}), Value(List{"b", "a", "b"}), Value(List{""})})
        expectWritten<TypeParam>(value, FieldType::strings, value);
}

TYPED_TEST(EveryModel, LeavesListsOfStringsAbsentForOtherValues) {
    for (const Value& value :
         {Value("a"), Value(List{"a", 1}), Value(List{nullptr, "a"}), Value(List{Value(List{})}), Value(DocumentMap{})})
        expectAbsent<TypeParam>(value, FieldType::strings);
}

TYPED_TEST(EveryModel, KeepsSectionsWithoutFields) {
    expectWritten<TypeParam>(DocumentMap{}, FieldType::section, DocumentMap{});
    expectWritten<TypeParam>(object(R"({"unknown": 1})"), FieldType::section, DocumentMap{});
}

TYPED_TEST(EveryModel, LeavesSectionsAbsentForOtherValues) {
    for (const Value& value : {Value("x"), Value(1), Value(List{}), Value(List{DocumentMap{}}), Value(false)}) {
        expectAbsent<TypeParam>(value, FieldType::section);
        expectAbsent<TypeParam>(value, FieldType::map);
    }
}

TYPED_TEST(EveryModel, KeepsEmptyListsAndMapsOfSections) {
    expectWritten<TypeParam>(List{}, FieldType::sections, List{});
    expectWritten<TypeParam>(DocumentMap{}, FieldType::map, DocumentMap{});
}

TYPED_TEST(EveryModel, LosesListsOfSectionsWholeByOneThatIsNoObject) {
    for (const Value& one : {Value(1), Value(nullptr), Value(List{})})
        expectAbsent<TypeParam>(List{DocumentMap{{"id", "g"}, {"title", "t"}}, one}, FieldType::sections);
    expectAbsent<TypeParam>(DocumentMap{}, FieldType::sections);
}

TYPED_TEST(EveryModel, LosesMapsOfSectionsWholeByOneThatIsNoObject) {
    for (const auto text : {R"({"good": {}, "bad": 1})", R"({"good": {}, "bad": null})", R"({"bad": [], "good": {}})"})
        expectAbsent<TypeParam>(object(text), FieldType::map);
}

}  // namespace
}  // namespace quorin
