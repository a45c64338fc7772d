#include "quorin/core/QuorinConfigManagerVersion.h"
#include "quorin/facade/c/quorin.h"

#include <stdio.h>

void printVersion(void);

void printVersion(void) {
    const char* absent = quorin_status_name(QUORIN_ABSENT);
    printf("C: %s, %.1f, %s\n", QuorinConfigManagerVersionString, QuorinConfigManagerVersionNumber, absent);
}
