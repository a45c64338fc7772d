#include "quorin/core/QuorinConfigManagerVersion.h"

// The build defines both, from the version of the project.
const double QuorinConfigManagerVersionNumber = QUORIN_VERSION_NUMBER;
const char QuorinConfigManagerVersionString[] = QUORIN_VERSION;
