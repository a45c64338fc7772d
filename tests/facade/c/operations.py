"""The C interface offers what the classes of the facade offer: fails where a member of one has no function in the other."""

import pathlib
import re
import sys

SOURCES = pathlib.Path(sys.argv[1]) / "quorin/facade"

# What a member is called in C, where that is not its own name behind the class's.
OTHERWISE = {
    "brand.brand": "brand_raw_value", "brand.KVTBrand": "brand_from_raw_value",
    "content_type.content_type": "content_type_raw_value",
    "content_type.KVTContentType": "content_type_from_raw_value",
    "http_method.http_method": "http_method_raw_value", "http_method.KVTHTTPMethod": "http_method_from_raw_value",
    "anonymous_bind.KVTAnonymousBind": "anonymous_bind_make",
}

# What a C host has no use for: the integer itself, the native value inside, and the classes' own construction.
NEEDLESS = {"raw_value", "from_raw_value", "configuration_manager", "KVTConfigurationManager"}
WRAPPED = {"configuration.configuration", "feature.feature", "web_service.web_service",
           "anonymous_bind.anonymous_bind", "application_data.application_data"}
OF_EVERY_WRAPPER = {"encode"}

# What the C interface has beyond the facade: handles, texts, maps and errors, streams, and requests.
BEYOND = re.compile(r"(release|copy|install|text_read|map_\w+|error_\w+|observable_\w+|subscription_\w+|params_\w+"
                    r"|request_\w+|response_\w+|web_service_configuration_guard|manager_\w+_observer)$")


def snake(name):
    return re.sub(r"(?<=[a-z0-9])(?=[A-Z])|(?<=[A-Z])(?=[A-Z][a-z])", "_", name).lower()


def members(path):
    """The names of a class's public functions and of its constructors that it declares itself."""
    text = re.sub(r"//[^\n]*", "", path.read_text())
    body = re.search(r"^class \w+.*?\{(.*?)^(?:private:|\};)", text, re.S | re.M).group(1)
    body = re.sub(r"\{[^{}]*\}", ";", re.sub(r"\([^()]*\)", "()", body))
    body = re.sub(r"operator \w+\(\)|: \w+\(\)", "", body)  # conversions, and initializers of constructors
    return {name for name in re.findall(r"(?<![\w:.>])(\w+)\(\)(?: const)?\s*[;:]", body)}


def facade():
    operations = {}
    for path in sorted(SOURCES.glob("KVT*.hpp")):
        name = {"KVTConfigurationManager": "manager"}.get(path.stem, snake(path.stem[3:]))
        wrapper = ": public Wrapper<" in path.read_text()
        for member in members(path) | (OF_EVERY_WRAPPER if wrapper else set()):
            member = member if member == path.stem else snake(member)
            key = f"{name}.{member}"
            if member not in NEEDLESS and key not in WRAPPED:
                operations[key] = OTHERWISE.get(key, f"{name}_{member}")
    return operations


def interface():
    text = "".join(path.read_text() for path in sorted((SOURCES / "c").glob("*.h")))
    return set(re.findall(r"^quorin_status quorin_(\w+)\(", text, re.M)) - {"status_name"}


def cases(path):
    """The integers of an enumeration by their names in C, without the prefix of their kind."""
    values = re.search(r"enum Case : std::int32_t \{(.*?)\}", path.read_text(), re.S).group(1)
    names = [name.split("=")[0].strip() for name in values.split(",")]
    prefix = "QUORIN_" + snake(path.stem[3:]).upper()
    return {f"{prefix}_{snake(name).upper()}": place for place, name in enumerate(names, -1)}


def constants():
    text = (SOURCES / "c/integers.h").read_text()
    return {name: int(value) for name, value in re.findall(r"^ +(QUORIN_\w+) = (-?\d+)", text, re.M)}


offered, functions = facade(), interface()
enumerations = {name: place for path in SOURCES.glob("KVT*.hpp") if "enum Case" in path.read_text()
                for name, place in cases(path).items()}
missing = {key: name for key, name in offered.items() if name not in functions}
strange = {name for name in functions - set(offered.values()) if not BEYOND.match(name)}
unread = [key for key in list(OTHERWISE) if key not in offered]
for key, name in sorted(missing.items()):
    print(f"{key} has no function quorin_{name}")
for name in sorted(strange):
    print(f"quorin_{name} is no member of the facade")
for key in unread:
    print(f"{key} was not found in the headers")
different = set(enumerations.items()) ^ set(constants().items())
for name, place in sorted(different):
    print(f"{name} = {place} stands in one of the interfaces alone")
sys.exit(bool(missing or strange or unread or different or len(offered) < 40))
