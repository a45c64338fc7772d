#pragma once

#include "quorin/facade/c/quorin.h"

#include "tests/context/Testbed.hpp"
#include "tests/facade/c/Host.hpp"
#include "tests/support/Child.hpp"
#include "tests/support/FaultServer.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace quorin {

/// An app that has installed its platform, with a server.
class App {
public:
    const support::FaultServer& server() const { return server_; }

    quorin_handle load(const std::string& path, std::int32_t brand = QUORIN_BRAND_UNDEFINED,
                       const char* version = nullptr) const {
        quorin_handle stream = QUORIN_NONE;
        quorin_manager_initialize(quorin_text_of(server_.url(path).c_str()), quorin_text_of("D"), brand,
                                  quorin_text_of(version), &stream);
        return stream;
    }

    /// The one value of the stream, or nothing.
    static quorin_handle valueOf(quorin_handle stream) {
        quorin_handle value = QUORIN_NONE, error = QUORIN_NONE;
        quorin_observable_wait(stream, &value, &error);
        quorin_release(stream);
        return value;
    }

    quorin_handle serviceNamed(const char* name) const {
        const quorin_handle configuration = valueOf(load("/a.json"));
        quorin_handle services = QUORIN_NONE, service = QUORIN_NONE;
        std::uint64_t position = 0;
        quorin_configuration_web_services(configuration, &services);
        quorin_map_find(services, quorin_text_of(name), &position);
        quorin_map_object(services, position, &service);
        return service;
    }

private:
    const support::FaultServer server_{{{"/a.json", support::answer(200, R"({"pel": {"features": {"chat": {"on": 1}}},
              "webservices": {"login": {"name": "login", "method": "post", "url": {"value": "http://h.example/{id}"},
                                        "header": {"Content-Type": "application/json"}}}})")},
                                        {"/broken", support::answer(200, "[]")},
                                        {"/teapot", support::answer(418, "short and stout")}}};
};

/// The C interface speaks for the shared manager, so each story runs in a process of its own.
class Host : public testing::Test {
protected:
    std::string inHost(const std::function<std::string(const App&)>& work) const {
        return support::inChild([&] {
            const std::string store = bed_.storePath();
            if (quorin_install(quorin_text_of("Sample"), quorin_text_of("2.4"), quorin_text_of(store.c_str())))
                return std::string("not installed");
            return work(App());
        });
    }

    const Testbed bed_{};
};

}  // namespace quorin
