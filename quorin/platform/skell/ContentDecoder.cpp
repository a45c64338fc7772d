#include "quorin/platform/skell/ContentDecoder.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <brotli/decode.h>
#include <zlib.h>

#include <array>
#include <new>

namespace quorin::skell {
namespace {

using Outcome = ContentDecoder::Outcome;
using Piece = std::array<unsigned char, 16 * 1024>;

std::string_view filled(const Piece& piece, std::size_t left) {
    return {reinterpret_cast<const char*>(piece.data()), piece.size() - left};
}

/// RFC 1952, with one or more members.
class GzipDecoder final : public ContentDecoder {
public:
    GzipDecoder() {
        if (inflateInit2(&state_, 16 + MAX_WBITS) != Z_OK) throw std::bad_alloc();
    }
    ~GzipDecoder() override { inflateEnd(&state_); }
    GzipDecoder(const GzipDecoder&) = delete;
    GzipDecoder& operator=(const GzipDecoder&) = delete;

    Outcome decode(std::string_view encoded, Body& into) override {
        state_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(encoded.data()));  // zlib reads it only
        state_.avail_in = static_cast<uInt>(encoded.size());                           // a piece of a few KiB
        while (state_.avail_in > 0 || pending_) {
            if (ended_ && inflateReset(&state_) != Z_OK) return Outcome::broken;
            state_.next_out = piece_.data();
            state_.avail_out = static_cast<uInt>(piece_.size());
            const int result = inflate(&state_, Z_NO_FLUSH);
            if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR) return Outcome::broken;
            ended_ = result == Z_STREAM_END;
            pending_ = !ended_ && state_.avail_out == 0;
            if (!into.append(filled(piece_, state_.avail_out))) return Outcome::tooLarge;
        }
        return Outcome::taken;
    }

    bool isComplete() const override { return ended_; }

private:
    z_stream state_{};
    Piece piece_{};
    bool ended_ = false;
    bool pending_ = false;  ///< zlib may hold more output than fitted
};

/// RFC 7932.
class BrotliDecoder final : public ContentDecoder {
public:
    BrotliDecoder() : state_(BrotliDecoderCreateInstance(nullptr, nullptr, nullptr), BrotliDecoderDestroyInstance) {
        if (!state_) throw std::bad_alloc();
    }

    Outcome decode(std::string_view encoded, Body& into) override {
        const auto* next = reinterpret_cast<const std::uint8_t*>(encoded.data());
        std::size_t left = encoded.size();
        auto result = BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT;
        while (result == BROTLI_DECODER_RESULT_NEEDS_MORE_OUTPUT) {
            std::uint8_t* out = piece_.data();
            std::size_t room = piece_.size();
            result = BrotliDecoderDecompressStream(state_.get(), &left, &next, &room, &out, nullptr);
            if (result == BROTLI_DECODER_RESULT_ERROR) return Outcome::broken;
            if (!into.append(filled(piece_, room))) return Outcome::tooLarge;
        }
        return left == 0 ? Outcome::taken : Outcome::broken;
    }

    bool isComplete() const override { return BrotliDecoderIsFinished(state_.get()) != 0; }

private:
    std::unique_ptr<BrotliDecoderState, decltype(&BrotliDecoderDestroyInstance)> state_;
    Piece piece_{};
};

}  // namespace

std::unique_ptr<ContentDecoder> ContentDecoder::of(std::string_view encoding) {
    using rawvalues::sameFolded;
    if (sameFolded(encoding, "gzip") || sameFolded(encoding, "x-gzip")) return std::make_unique<GzipDecoder>();
    if (sameFolded(encoding, "br")) return std::make_unique<BrotliDecoder>();
    return nullptr;
}

}  // namespace quorin::skell
