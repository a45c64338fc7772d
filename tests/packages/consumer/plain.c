#include "quorin/core/QuorinConfigManagerVersion.h"

#include <stdio.h>

void printVersion(void);

void printVersion(void) { printf("C: %s, %.1f\n", QuorinConfigManagerVersionString, QuorinConfigManagerVersionNumber); }
