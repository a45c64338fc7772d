// What reads, writes and compares models yields no half of one where memory is missing.
#include "quorin/context/AnonymousBind.hpp"

#include "tests/faults/EachAllocation.hpp"
#include "tests/model/FieldCases.hpp"
#include "tests/table/Documents.hpp"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace quorin {
namespace {

using faults::Failed;

DocumentMap sampleDocument() {
    std::ifstream file(QUORIN_SOURCE_DIR "/examples/documents/family.json");
    return object(std::string(std::istreambuf_iterator<char>(file), {}));
}

/// A document with every field of the model.
template <class Model>
DocumentMap whole() {
    DocumentMap document;
    for (const FieldCase<Model>& field : fieldsOf<Model>()) {
        const DocumentMap member = object(field.document);
        document = document.with(member.at(0).first, member.at(0).second);
    }
    return document;
}

/// The brand's section that the sample document has.
template <>
DocumentMap whole<Configuration>() {
    const DocumentMap document = sampleDocument();
    return document.find("orvel")->asObject()->with("webservices", *document.find("webservices"));
}
template <>
DocumentMap whole<Group>() {
    return object(R"({"id":"a group with a long identifier","title":"a title that is long"})");
}
template <>
DocumentMap whole<Feature>() {
    return object(R"({"name":"a feature with a long name","enabled":true,"rules":[1,{"a":"b"}]})");
}
template <>
DocumentMap whole<WebService>() {
    return object(R"({"name":"login","url":{"value":"https://h.example/{id}/login"},"method":"POST",
                      "header":{"Accept":"application/json","Content-Type":"application/json"}})");
}
template <>
DocumentMap whole<AnonymousBind>() {
    return object(R"({"profileId":"a profile with a long name","jwt":"a token that is long as well"})");
}

template <class Model>
class ModelWithoutMemory : public testing::Test {
protected:
    /// A failure is thrown, or makes no difference. Yields how many allocations failed.
    template <class Read>
    long failuresOf(const Read& read) const {
        const auto expected = read();
        bool isWhole = false;
        const auto reading = [&] { isWhole = read() == expected; };
        const long failures = faults::failEach(reading, [&](const Failed& failed) {
            EXPECT_TRUE(failed.isThrown || isWhole);
            EXPECT_EQ(failed.kept, 0);
            isWhole = false;
        });
        EXPECT_TRUE(isWhole);
        return failures;
    }

    /// A record of numbers takes no memory, and the root takes much.
    static constexpr long least = std::is_same_v<Model, Configuration> ? 20 : 0;

    const DocumentMap document_ = whole<Model>();
    const std::optional<Model> model_ = Model::fromJSON(document_);
};

struct Names {
    template <class Model>
    static std::string GetName(int) {
        return std::string(Model::keyTable().name);
    }
};

using Models = testing::Types<Configuration, Initialize, AppVersion, ApplicationData, Common, Auth, Profile, Group,
                              Feature, Player, Ads, ContinuousPlayback, Timing, Duration, AnalyticSuite, ConfigLayout,
                              WebService, AnonymousBind>;
TYPED_TEST_SUITE(ModelWithoutMemory, Models, Names);

TYPED_TEST(ModelWithoutMemory, IsReadWholeOrNotAtAll) {
    ASSERT_TRUE(this->model_);
    EXPECT_GE(this->failuresOf([this] { return TypeParam::fromJSON(this->document_); }), this->least);
}

TYPED_TEST(ModelWithoutMemory, IsReadWholeOrNotAtAllWithAReport) {
    const auto read = [this] {
        ReadReport report;
        return TypeParam::fromJSON(this->document_, &report);
    };
    EXPECT_GE(this->failuresOf(read), this->least);
}

TYPED_TEST(ModelWithoutMemory, IsReadBackWholeOrNotAtAll) {
    const DocumentMap archive = this->model_->encode();
    EXPECT_GE(this->failuresOf([&] { return TypeParam::fromEncoded(archive); }), this->least);
}

TYPED_TEST(ModelWithoutMemory, IsWrittenWholeOrNotAtAll) {
    EXPECT_GT(this->failuresOf([this] { return this->model_->encode(); }), 0);
}

TYPED_TEST(ModelWithoutMemory, IsEqualToAnEqualOneWithoutAny) {
    const auto other = TypeParam::fromJSON(whole<TypeParam>());
    EXPECT_EQ(this->failuresOf([&] { return *this->model_ == *other; }), 0);
}

TYPED_TEST(ModelWithoutMemory, IsCopiedWholeOrNotAtAll) {
    EXPECT_GE(this->failuresOf([this] { return std::optional<TypeParam>(this->model_); }), this->least);
}

}  // namespace
}  // namespace quorin
