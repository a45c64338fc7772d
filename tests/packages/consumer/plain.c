#include "quorin/core/QuorinConfigManagerVersion.h"
#include "quorin/facade/c/quorin.h"

#include <stdio.h>

void printVersion(void);

void printVersion(void) {
    quorin_handle bind;
    char profile[8] = "";
    quorin_anonymous_bind_make(quorin_text_of("p-1"), quorin_text_of("token"), &bind);
    quorin_anonymous_bind_profile_id(bind, profile, sizeof profile, NULL);
    quorin_release(bind);
    printf("C: %s, %.1f, %s\n", QuorinConfigManagerVersionString, QuorinConfigManagerVersionNumber, profile);
}
