#pragma once

#include "quorin/platform/skell/Body.hpp"
#include "quorin/platform/skell/ContentDecoder.hpp"
#include "quorin/platform/skell/Curl.hpp"
#include "quorin/platform/skell/Hop.hpp"
#include "quorin/platform/skell/ResponseHead.hpp"
#include "quorin/platform/skell/Transport.hpp"

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <variant>

namespace quorin::skell {

/// One hop on a libcurl handle: what goes out and what comes in. Request thread only.
class Transfer {
public:
    /// What a hop ends with.
    using Outcome = std::variant<Response, SkellError>;

    /// `easy` must be fresh or reset, and outlive the transfer.
    Transfer(CURL* easy, Hop hop, const Transport& transport);
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    /// Makes the handle ready; `left` is what remains of the total time. Yields what libcurl does not take.
    CURLcode prepare(std::chrono::milliseconds left);

    CURL* easy() const { return easy_; }

    /// Once, after libcurl is through with the handle or refused it.
    Outcome outcome(CURLcode code);

private:
    enum class Stop { none, tooLarge, headTooLarge, notHTTP, encoding, afterHead, repeated };

    static std::size_t onHead(char* data, std::size_t size, std::size_t count, void* self) noexcept;
    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self) noexcept;
    static int onSend(void* self, char*, char*, int, int) noexcept;

    Stop takeHeadLine(std::string_view line);
    Stop takeBody(std::string_view bytes);
    bool endsWithHead() const;
    std::string failedCertificate() const;
    SkellError failed(CURLcode code) const;
    SkellError stopped() const;

    CURL* easy_;
    Hop hop_;
    const Transport& transport_;
    std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> lines_;
    std::array<char, CURL_ERROR_SIZE> words_{};
    ResponseHead head_{};
    Body body_;
    std::unique_ptr<ContentDecoder> decoder_{};
    int sendings_ = 0;
    Stop stop_ = Stop::none;
};

}  // namespace quorin::skell
