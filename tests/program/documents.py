"""Configuration documents, right ones and spoiled ones, for tests that compare what is said of them."""

import copy

from test_read import TYPES

LIMIT = 2 ** 63
# What may stand anywhere, right or wrong.
VALUES = [None, True, False, 0, 1, -1, 0.5, -30.9, -0.0, 1e300, LIMIT - 1, LIMIT, -LIMIT, 2 ** 64 - 1, 2 ** 64, -1e19,
          float(LIMIT - 1024), float(LIMIT), "", "5", "true", "text", "Post", "get\n", "po\u017ft", "APPLICATION/xml",
          "application/x-www-form-urlencoded ", [], ["a"], ["a", 1], [None], [{}], {}, {"a": 1}, {"a": {}},
          {"value": "u"}, {"value": 1}, {"name": 5}, {"": {"": None}}]


def server_form(name):
    """A new object of the type that its reader takes without a finding."""
    if name == "Configuration":
        return configuration(1)
    if name == "WebService":
        return {"name": "n", "url": {"value": "u"}, "method": "Post",
                "header": {"Content-Type": "APPLICATION/JSON", "Accept": "application/xml"}}
    return copy.deepcopy(TYPES[name][0])


def configuration(entries):
    """A section that reads without a finding, with so many entries in each map and list."""
    def many(name):
        return {f"{name}-{i}": server_form(name) for i in range(entries)}
    player = {**server_form("Player"), "ads": server_form("Ads"),
              "continuousPlayback": {**server_form("ContinuousPlayback"), "timing": server_form("Timing"),
                                     "duration": server_form("Duration")}}
    return {"application": server_form("ApplicationData"), "appversion": server_form("AppVersion"),
            "init": server_form("Initialize"), "common": server_form("Common"), "auth": server_form("Auth"),
            "profile": server_form("Profile"), "videoPlayer": player, "groups": list(many("Group").values()),
            "webservices": many("WebService"), "features": many("Feature"), "layouts": many("ConfigLayout"),
            "analytics": many("AnalyticSuite")}


def places(value, way=()):
    """The way to every value inside, containers too."""
    inside = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    for step, inner in inside:
        yield (*way, step)
        yield from places(inner, (*way, step))


def spoiled(chance, value):
    """The value as somebody may have mistyped it; it may still be right."""
    if isinstance(value, str) and chance.random() < 0.3:
        return value.swapcase()
    if isinstance(value, (int, float)) and chance.random() < 0.3:
        return str(value)
    return any_value(chance)


def any_value(chance):
    return copy.deepcopy(chance.choice(VALUES))


def mutate(chance, document):
    """Spoils, removes or adds one member somewhere."""
    ways = list(places(document))
    if not ways:
        return
    way = chance.choice(ways)
    around = document
    for step in way[:-1]:
        around = around[step]
    kind = chance.random()
    if kind < 0.2:
        del around[way[-1]]
    elif kind < 0.3 and isinstance(around, dict):
        around[chance.choice(["$schema", "name", "id", "Content-Type", "brand"])] = any_value(chance)
    else:
        around[way[-1]] = spoiled(chance, around[way[-1]])
