#pragma once

// For C99 and C++ alike.

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/// The library's major and minor version as the one number MAJOR.MINOR: 0.1 for every 0.1.x.
extern const double QuorinConfigManagerVersionNumber;

/// The library's full version, ended by NUL: "0.1.0".
extern const char QuorinConfigManagerVersionString[];

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif
