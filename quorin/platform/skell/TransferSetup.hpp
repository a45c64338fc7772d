#pragma once

#include "quorin/platform/skell/Curl.hpp"
#include "quorin/platform/skell/Hop.hpp"
#include "quorin/platform/skell/Transport.hpp"

#include <chrono>
#include <string>

namespace quorin::skell {

/// The header lines of a hop as libcurl takes them, which also keep it from adding headers of its own.
curl_slist* headerLines(const Hop& hop);

/// The kind of failure that a code of libcurl stands for.
SkellError::Kind kindOf(CURLcode code, CURL* easy);

/// What happened, in words, where only the kind is known.
std::string whatOf(SkellError::Kind kind);

/// Options of one libcurl handle. The first that libcurl does not take is kept, and no further one is tried.
class TransferSetup {
public:
    explicit TransferSetup(CURL* easy) : easy_(easy) {}

    /// Everything below the message. `left` is what remains of the total time.
    void connection(const Transport& transport, std::chrono::milliseconds left);

    /// `hop` and `lines` must outlive the transfer: its body is sent from where it is.
    void message(const Hop& hop, curl_slist* lines);

    template <class Value>
    void set(CURLoption option, Value value) {
        if (code_ == CURLE_OK) code_ = curl().easy_setopt(easy_, option, value);
    }

    CURLcode code() const { return code_; }

private:
    CURL* easy_;
    CURLcode code_ = CURLE_OK;
};

}  // namespace quorin::skell
