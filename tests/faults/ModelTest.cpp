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
    /// A failure is thrown, or makes no difference.
    template <class Read>
    void expectWholeOrThrown(const Read& read) const {
        const auto expected = read();
        bool isWhole = false;
        const auto reading = [&] { isWhole = read() == expected; };
        faults::failEach(reading, [&](const Failed& failed) {
            EXPECT_TRUE(failed.isThrown || isWhole);
            EXPECT_EQ(failed.kept, 0);
            isWhole = false;
        });
        EXPECT_TRUE(isWhole);
    }

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
    this->expectWholeOrThrown([this] { return TypeParam::fromJSON(this->document_); });
}

TYPED_TEST(ModelWithoutMemory, IsReadWholeOrNotAtAllWithAReport) {
    this->expectWholeOrThrown([this] {
        ReadReport report;
        return TypeParam::fromJSON(this->document_, &report);
    });
}

TYPED_TEST(ModelWithoutMemory, IsReadBackWholeOrNotAtAll) {
    const DocumentMap archive = this->model_->encode();
    this->expectWholeOrThrown([&] { return TypeParam::fromEncoded(archive); });
}

TYPED_TEST(ModelWithoutMemory, IsWrittenWholeOrNotAtAll) {
    this->expectWholeOrThrown([this] { return this->model_->encode(); });
}

TYPED_TEST(ModelWithoutMemory, IsEqualToAnEqualOneOrThrows) {
    const auto other = TypeParam::fromJSON(whole<TypeParam>());
    this->expectWholeOrThrown([&] { return *this->model_ == *other; });
}

TYPED_TEST(ModelWithoutMemory, IsCopiedWholeOrNotAtAll) {
    this->expectWholeOrThrown([this] { return std::optional<TypeParam>(this->model_); });
}

}  // namespace
}  // namespace quorin
