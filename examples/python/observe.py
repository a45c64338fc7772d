#!/usr/bin/env python3
"""An app in Python: load a configuration, observe an identity value, send a configured request.

    observe.py LIBRARY URL STORE

LIBRARY is the shared library, such as /usr/lib/x86_64-linux-gnu/libQuorinConfigManager.so.0.1.
"""

import ctypes
import json
import sys

OK = 0
BRAND_ORVEL = 0
Handle = ctypes.c_uint64


class Text(ctypes.Structure):
    _fields_ = [("data", ctypes.c_char_p), ("size", ctypes.c_uint64)]

    def __init__(self, text=None):
        data = None if text is None else text.encode()
        super().__init__(data, len(data or b""))


class Pair(ctypes.Structure):
    _fields_ = [("name", Text), ("value", Text)]


ValueHandler = ctypes.CFUNCTYPE(None, ctypes.c_void_p, Handle)
EndHandler = ctypes.CFUNCTYPE(None, ctypes.c_void_p)


class Handlers(ctypes.Structure):
    _fields_ = [("value", ValueHandler), ("error", ValueHandler), ("completed", EndHandler), ("released", EndHandler)]


class Failure(Exception):
    pass


class Object:
    """An object of the library, released when nobody refers to it any more."""

    def __init__(self, library):
        self.library = library
        self.handle = Handle()

    def __del__(self):
        self.library.quorin_release(self.handle)


class Library:
    """The functions of the library, each told by its name without the prefix `quorin_`."""

    def __init__(self, path):
        self.library = ctypes.CDLL(path)
        self.library.quorin_status_name.restype = ctypes.c_char_p

    def call(self, name, *arguments):
        """Calls a function; what it yields besides OK is an exception."""
        passed = [argument.handle if isinstance(argument, Object) else argument for argument in arguments]
        status = getattr(self.library, "quorin_" + name)(*passed)
        if status != OK:
            raise Failure(f"{name}: {self.library.quorin_status_name(status).decode()}")

    def object(self, name, *arguments):
        """The object that a function yields in its last argument."""
        made = Object(self.library)
        self.call(name, *arguments, ctypes.byref(made.handle))
        return made

    def number(self, kind, name, *arguments):
        number = kind()
        self.call(name, *arguments, ctypes.byref(number))
        return number.value

    def text(self, name, *arguments):
        """The text that a function puts into a buffer."""
        size = ctypes.c_uint64()
        self.call(name, *arguments, None, Handle(0), ctypes.byref(size))
        buffer = ctypes.create_string_buffer(size.value + 1)
        self.call(name, *arguments, buffer, Handle(len(buffer)), None)
        return buffer.raw[:size.value].decode()

    def wait(self, stream):
        """The one result of a stream."""
        value, error = Object(self.library), Object(self.library)
        try:
            self.call("observable_wait", stream, ctypes.byref(value.handle), ctypes.byref(error.handle))
        except Failure as failure:
            raise Failure(self.text("error_description", error) if error.handle else failure) from None
        return value


def observe(quorin):
    seen = []

    def account(_, value):
        seen.append(quorin.text("text_read", Handle(value)) if value else None)

    # the functions are kept as long as the library may call them
    handlers = Handlers(ValueHandler(account), ValueHandler(), EndHandler(), EndHandler())
    stream = quorin.object("manager_kova_observer")
    subscription = quorin.object("observable_subscribe", stream, ctypes.byref(handlers), None)
    try:
        quorin.call("manager_set_kova", Text("account-7"))
        quorin.call("manager_set_kova", Text())
    finally:
        quorin.call("subscription_dispose", subscription)
    print("accounts:", json.dumps(seen))


def search(quorin, configuration, words):
    services = quorin.object("configuration_web_services", configuration)
    position = quorin.number(ctypes.c_uint64, "map_find", services, Text("search"))
    service = quorin.object("map_object", services, ctypes.c_uint64(position))
    params = quorin.object("params_make")
    query = Pair(Text("q"), Text(words))
    quorin.call("params_set_query_parameters", params, ctypes.byref(query), ctypes.c_uint64(1))
    quorin.call("params_set_has_valid_params", params, 1)
    request = quorin.object("request_build", params, service)
    response = quorin.wait(quorin.object("request_send", request))
    status = quorin.number(ctypes.c_int32, "response_status", response)
    print(f"{status}: {quorin.text('response_body', response)}")


def main(library, url, store):
    quorin = Library(library)
    quorin.call("install", Text("Sample"), Text("2.4"), Text(store))
    load = quorin.object("manager_initialize", Text(url), Text("device-1"), BRAND_ORVEL, Text())
    try:
        configuration = quorin.wait(load)
    except Failure as failure:
        sys.exit(f"no configuration: {failure}")
    print("device:", quorin.text("configuration_device", configuration))
    observe(quorin)
    search(quorin, configuration, "blue whale")


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
