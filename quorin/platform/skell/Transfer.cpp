#include "quorin/platform/skell/Transfer.hpp"

#include "quorin/platform/skell/TransferSetup.hpp"

#include <new>
#include <string_view>

namespace quorin::skell {
namespace {

/// A message that may have taken effect is not sent a second time when its connection breaks (RFC 9110 section 9.2.2).
bool isIdempotent(HTTPMethod method) { return method != HTTPMethod::POST && method != HTTPMethod::PATCH; }

}  // namespace

Transfer::Transfer(CURL* easy, Hop hop, const Transport& transport)
    : easy_(easy),
      hop_(std::move(hop)),
      transport_(transport),
      lines_(nullptr, curl().slist_free_all),
      body_(transport.maxBody) {}

CURLcode Transfer::prepare(std::chrono::milliseconds left) {
    lines_.reset(headerLines(hop_));
    TransferSetup setup(easy_);
    setup.connection(transport_, left);
    setup.message(hop_, lines_.get());
    setup.set(CURLOPT_ERRORBUFFER, words_.data());
    setup.set(CURLOPT_HEADERFUNCTION, &Transfer::onHead);
    setup.set(CURLOPT_HEADERDATA, this);
    setup.set(CURLOPT_WRITEFUNCTION, &Transfer::onBody);
    setup.set(CURLOPT_WRITEDATA, this);
    setup.set(CURLOPT_PREREQFUNCTION, &Transfer::onSend);
    setup.set(CURLOPT_PREREQDATA, this);
    return setup.code();
}

// Neither callback lets an exception pass through libcurl: no memory for a response is one that is too large.
std::size_t Transfer::onHead(char* data, std::size_t size, std::size_t count, void* self) noexcept try {
    auto& transfer = *static_cast<Transfer*>(self);
    transfer.stop_ = transfer.takeHeadLine({data, size * count});
    return transfer.stop_ == Stop::none ? size * count : CURL_WRITEFUNC_ERROR;
} catch (const std::bad_alloc&) {
    static_cast<Transfer*>(self)->stop_ = Stop::tooLarge;
    return CURL_WRITEFUNC_ERROR;
}

std::size_t Transfer::onBody(char* data, std::size_t size, std::size_t count, void* self) noexcept try {
    auto& transfer = *static_cast<Transfer*>(self);
    transfer.stop_ = transfer.takeBody({data, size * count});
    return transfer.stop_ == Stop::none ? size * count : CURL_WRITEFUNC_ERROR;
} catch (const std::bad_alloc&) {
    static_cast<Transfer*>(self)->stop_ = Stop::tooLarge;
    return CURL_WRITEFUNC_ERROR;
}

/// libcurl repeats a request by itself when a connection it reuses turns out to be closed.
int Transfer::onSend(void* self, char*, char*, int, int) noexcept {
    auto& transfer = *static_cast<Transfer*>(self);
    if (++transfer.sendings_ == 1 || isIdempotent(transfer.hop_.method)) return CURL_PREREQFUNC_OK;
    transfer.stop_ = Stop::repeated;
    return CURL_PREREQFUNC_ABORT;
}

Transfer::Stop Transfer::takeHeadLine(std::string_view line) {
    const bool wasComplete = head_.isComplete();
    if (!head_.take(line)) return Stop::headTooLarge;
    if (wasComplete || !head_.isComplete()) return Stop::none;
    if (!head_.hasOneLength()) return Stop::notHTTP;
    if (endsWithHead()) return Stop::afterHead;
    const bool isPlain = hop_.method != HTTPMethod::HEAD && head_.contentEncoding().empty();
    if (isPlain) body_.expect(head_.contentLength().value_or(0));
    return Stop::none;
}

/// What follows a CONNECT is a tunnel and not a body (RFC 9110 section 9.3.6), and nothing is to go through it. libcurl
/// knows that no body follows a HEAD by itself only where it sends none.
bool Transfer::endsWithHead() const {
    return (hop_.method == HTTPMethod::CONNECT && head_.status() < 300)
           || (hop_.method == HTTPMethod::HEAD && hop_.body);
}

Transfer::Stop Transfer::takeBody(std::string_view bytes) {
    if (!decoder_) {
        const std::string encoding = head_.contentEncoding();
        if (encoding.empty()) return body_.append(bytes) ? Stop::none : Stop::tooLarge;
        decoder_ = ContentDecoder::of(encoding);
        if (!decoder_) return Stop::encoding;
    }
    switch (decoder_->decode(bytes, body_)) {
        case ContentDecoder::Outcome::taken: return Stop::none;
        case ContentDecoder::Outcome::tooLarge: return Stop::tooLarge;
        case ContentDecoder::Outcome::broken: break;
    }
    return Stop::encoding;
}

Transfer::Outcome Transfer::outcome(CURLcode code) {
    if (stop_ != Stop::none && stop_ != Stop::afterHead) return stopped();
    if (code != CURLE_OK && stop_ != Stop::afterHead) return failed(code);
    if (!head_.isComplete()) return failed(CURLE_PARTIAL_FILE);  // libcurl is content with half a head
    if (decoder_ && !decoder_->isComplete())
        return failure(SkellError::Kind::decoding, hop_.url, "encoded content cut short");
    return Response({head_.status(), head_.takeFields(), hop_.url, body_.take()});
}

SkellError Transfer::stopped() const {
    switch (stop_) {
        case Stop::tooLarge:
            return failure(SkellError::Kind::tooLarge, hop_.url,
                           "a body of more than " + std::to_string(transport_.maxBody) + " bytes");
        case Stop::encoding:
            return failure(SkellError::Kind::decoding, hop_.url, "a content encoding that cannot be undone");
        case Stop::headTooLarge: return failure(SkellError::Kind::network, hop_.url, "a header section without end");
        case Stop::notHTTP: return failure(SkellError::Kind::network, hop_.url, "contradicting Content-Length headers");
        default: break;
    }
    return failure(SkellError::Kind::network, hop_.url, "the connection broke, and the request is not sent twice");
}

/// libcurl's words on a certificate, which name nothing but host, file and reason.
std::string Transfer::failedCertificate() const {
    const std::string_view words(words_.data());
    return words.empty() ? std::string() : " (" + std::string(words) + ")";
}

SkellError Transfer::failed(CURLcode code) const {
    const SkellError::Kind kind = kindOf(code, easy_);
    std::string what = whatOf(kind);
    if (kind == SkellError::Kind::tls) what += failedCertificate();
    if (kind == SkellError::Kind::network || kind == SkellError::Kind::invalidRequest) {
        what.append(" (").append(curl().easy_strerror(code)).append(")");
    }
    return failure(kind, hop_.url, what);
}

}  // namespace quorin::skell
