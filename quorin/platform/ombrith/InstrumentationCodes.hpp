#pragma once

#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// The codes that an `Oops` record is made of. The numbers are this project's own and never change their meaning.
/// Each table's `nameOf` yields the printed name of a code: that of the constant, or the number of an unknown one.
struct InstrumentationCodes {
    /// Who raised the record.
    struct Component {
        static constexpr int configurationManager = 1;

        static std::string nameOf(int code);
    };

    /// What it was doing.
    struct Element {
        /// Prints as "default", which is a word of the language.
        static constexpr int default_ = 0;
        static constexpr int configInitialization = 1;
        static constexpr int configurationGuard = 2;

        static std::string nameOf(int code);
    };

    /// What went wrong.
    struct ErrorCode {
        static constexpr int notFound = 1;
        static constexpr int jsonParsing = 2;
        static constexpr int invalidParams = 3;
        static constexpr int configNotInitialized = 4;

        static std::string nameOf(int code);
    };
};

}  // namespace quorin

#pragma GCC visibility pop
