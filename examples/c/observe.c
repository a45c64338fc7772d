/* An app in C: load a configuration, observe an identity value, send a configured request.
 *
 *     observe URL STORE
 */

#include "quorin/facade/c/quorin.h"

#include <stdio.h>
#include <stdlib.h>

/* Says why a call did not do what it should, and ends the program. */
static void expect(quorin_status status, const char* what, quorin_handle error) {
    char words[1024] = "";
    if (status == QUORIN_OK) return;
    quorin_error_description(error, words, sizeof words, NULL);
    fprintf(stderr, "%s: %s %s\n", what, quorin_status_name(status), words);
    exit(1);
}

static void accountChanged(void* user, quorin_handle value) {
    char account[256];
    (void)user;
    if (value == QUORIN_NONE)
        puts("the account was removed");
    else if (quorin_text_read(value, account, sizeof account, NULL) == QUORIN_OK)
        printf("the account is now %s\n", account);
}

/* The configuration that was loaded is the manager's from now on. */
static void load(const char* url) {
    quorin_handle loading, configuration, error;
    quorin_status status;
    expect(quorin_manager_initialize(quorin_text_of(url), quorin_text_of("device-1"), QUORIN_BRAND_ORVEL,
                                     quorin_text_of(NULL), &loading),
           "initialize", QUORIN_NONE);
    status = quorin_observable_wait(loading, &configuration, &error);
    expect(status, "load", error);
    quorin_release(configuration);
    quorin_release(loading);
}

static void observe(void) {
    const quorin_handlers handlers = {accountChanged, NULL, NULL, NULL};
    quorin_handle accounts, subscription;
    expect(quorin_manager_kova_observer(&accounts), "observer", QUORIN_NONE);
    expect(quorin_observable_subscribe(accounts, &handlers, NULL, &subscription), "subscribe", QUORIN_NONE);
    quorin_manager_set_kova(quorin_text_of("account-7"));
    quorin_manager_set_kova(quorin_text_of(NULL));
    quorin_subscription_dispose(subscription);
    quorin_release(subscription);
    quorin_release(accounts);
}

/* The endpoint of a name in the current configuration. */
static quorin_handle serviceOf(const char* name) {
    quorin_handle configuration, services, service;
    uint64_t position;
    expect(quorin_manager_configuration(&configuration), "configuration", QUORIN_NONE);
    expect(quorin_configuration_web_services(configuration, &services), "web services", QUORIN_NONE);
    expect(quorin_map_find(services, quorin_text_of(name), &position), name, QUORIN_NONE);
    expect(quorin_map_object(services, position, &service), name, QUORIN_NONE);
    quorin_release(services);
    quorin_release(configuration);
    return service;
}

static void search(const char* words) {
    const quorin_handle service = serviceOf("search");
    const quorin_pair query = {quorin_text_of("q"), quorin_text_of(words)};
    quorin_handle params, request, sending, response, error;
    quorin_status result;
    int32_t status;
    char body[1024];

    expect(quorin_params_make(&params), "params", QUORIN_NONE);
    expect(quorin_params_set_query_parameters(params, &query, 1), "query", QUORIN_NONE);
    expect(quorin_params_set_has_valid_params(params, 1), "params", QUORIN_NONE);
    result = quorin_web_service_configuration_guard(service, params, &error);
    expect(result, "guard", error);
    expect(quorin_request_build(params, service, &request), "build", QUORIN_NONE);
    expect(quorin_request_send(request, &sending), "send", QUORIN_NONE);
    result = quorin_observable_wait(sending, &response, &error);
    expect(result, "response", error);
    expect(quorin_response_status(response, &status), "status", QUORIN_NONE);
    expect(quorin_response_body(response, body, sizeof body, NULL), "body", QUORIN_NONE);
    printf("%d: %s\n", (int)status, body);

    quorin_release(response);
    quorin_release(sending);
    quorin_release(request);
    quorin_release(params);
    quorin_release(service);
}

int main(int argc, char** argv) {
    if (argc != 3) {
        fputs("usage: observe URL STORE\n", stderr);
        return 2;
    }
    expect(quorin_install(quorin_text_of("Sample"), quorin_text_of("2.4"), quorin_text_of(argv[2])), "install",
           QUORIN_NONE);
    load(argv[1]);
    observe();
    search("blue whale");
    return 0;
}
