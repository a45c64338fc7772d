#pragma once

#include "quorin/services/requests/APIParams.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quorin {

/// Parameters that answer as they are told, and keep what they were asked.
class RecordingParams final : public APIParams {
public:
    struct Answers {
        std::optional<StringMap> headers{};
        std::optional<DocumentMap> dictionaryRepresentation{};
        std::optional<StringMap> mapping{};
        std::optional<StringMap> query{};
        bool isValid = false;
        bool removeUserAgent = false;
    };

    RecordingParams() = default;
    explicit RecordingParams(Answers answers) : answers_(std::move(answers)) {}

    std::optional<StringMap> headers() const override { return asked("headers", answers_.headers); }
    std::optional<DocumentMap> dictionaryRepresentation() const override {
        return asked("dictionaryRepresentation", answers_.dictionaryRepresentation);
    }
    std::optional<std::string> urlEncodedString() const override {
        return asked("urlEncodedString", APIParams::urlEncodedString());
    }
    bool hasValidParams() const override { return asked("hasValidParams", answers_.isValid); }
    std::optional<StringMap> URLMapping() const override { return asked("URLMapping", answers_.mapping); }
    std::optional<StringMap> queryParameters() const override { return asked("queryParameters", answers_.query); }
    bool removeUserAgent() const override { return asked("removeUserAgent", answers_.removeUserAgent); }

    /// The names of what was asked, in order.
    const std::vector<std::string>& questions() const { return questions_; }

private:
    template <class T>
    T asked(const char* question, T answer) const {
        questions_.emplace_back(question);
        return answer;
    }

    Answers answers_{};
    mutable std::vector<std::string> questions_{};
};

}  // namespace quorin
