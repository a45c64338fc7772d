#include "Diagnosis.hpp"

namespace quorin::document {

std::string Diagnosis::words() const {
    return "expected " + std::string(expected) + ", found " + std::string(found) + "; " + std::string(cost);
}

std::string Diagnosis::hint() const {
    const std::string advice(kind.hint);
    return meant.empty() ? advice : "did you mean " + meant + "? " + advice;
}

}  // namespace quorin::document
