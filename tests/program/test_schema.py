"""`schema`: a schema that takes exactly what the readers take, as a validator of others judges it."""

import copy
import json
import pathlib
import random
import string

from jsonschema import Draft202012Validator

from documents import VALUES, any_value, configuration, mutate, places, server_form
from program import ProgramTest
from test_read import TYPES

DOCUMENTS = pathlib.Path(__file__).resolve().parents[2] / "examples" / "documents"
BRANDS = ["orvel", "bris", "003", "pel", "qnt", "tvs", "voss", "wexley", "unknown"]
NOT_ASKED = ("no reader asks for it", "the document's own stand in its place")


def unit(pointer):
    """What is read by itself: an entry of a map, an element of a list, or a section."""
    steps = pointer.split("/")
    isEntry = steps[1:2] and steps[1] in ("groups", "webservices", "features", "layouts", "analytics")
    return "/".join(steps[:3 if isEntry else 2])


def pointer_to(path):
    return "".join(f"/{step}" for step in path)


def place_of(error):
    """Where the reader finds the same fault: what is missing stands nowhere, and is looked for below."""
    missing = error.message.split("'")[1:2] if error.validator == "required" else []
    return pointer_to([*error.absolute_path, *missing])


def members(value):
    """Every member, at any depth, with its name."""
    for way in places(value):
        inner = value
        for step in way:
            inner = inner[step]
        if isinstance(way[-1], str):
            yield way[-1], inner


class SchemaTest(ProgramTest):
    def schema(self, *words):
        return self.done("schema", *words).json

    def validator(self, *words):
        return Draft202012Validator(self.schema(*words))

    def findings(self, document, brand=None):
        """The pointers of what a load does not take for reasons of type."""
        file = document if isinstance(document, str) else self.file("document.json", document)
        words = ["--brand", brand] if brand else []
        output = self.done("show", file, "--device", "d", "--store", ":memory:", *words).output
        if output.endswith("\nEverything in the document was taken.\n"):
            return []
        _, _, table = output.rpartition("\nnot taken (")
        head, *lines = table.splitlines()[1:]
        ends, begins = head.index("LINE:COLUMN"), head.index("SO")
        return [line[:ends].strip() for line in lines if line[begins:] not in NOT_ASKED]

    def is_taken(self, document):
        """Whether each load takes all: one without a brand, and those of the brands that have a section."""
        file = self.file("document.json", document)
        own = [name for name in BRANDS if isinstance(document.get(name), dict)]
        return not any(self.findings(file, brand) for brand in (None, *own))


class Shape(SchemaTest):
    def test_every_schema_is_one(self):
        for words in ((), *((name,) for name in TYPES)):
            schema = self.schema(*words)
            self.assertEqual(schema["$schema"], "https://json-schema.org/draft/2020-12/schema")
            Draft202012Validator.check_schema(schema)

    def test_every_reference_leads_to_a_definition_and_each_is_led_to(self):
        for words in ((), *((name,) for name in TYPES)):
            schema = self.schema(*words)
            led = {reference for name, reference in members(schema) if name == "$ref"}
            self.assertEqual(led, {f"#/$defs/{name}" for name in schema["$defs"]}, words)

    def test_no_member_takes_just_anything(self):
        for name in TYPES:
            schemas = [one for _, found in members(self.schema(name)) if isinstance(found, dict)
                       for one in found.get("properties", {}).values()]
            self.assertTrue(all({"$ref", "type"} & set(one) for one in schemas), name)

    def test_every_definition_has_its_words(self):
        definitions = self.schema()["$defs"]
        self.assertTrue(all(one["title"] and one["description"].endswith(".") for one in definitions.values()))
        self.assertEqual(definitions["Ads"]["description"], "Advertising settings of the player.")
        self.assertIn("cut off toward zero", definitions["integer"]["description"])
        self.assertIn("left out alone", definitions["Configuration"]["properties"]["layouts"]["description"])
        self.assertNotIn("`", json.dumps(definitions))

    def test_a_type_is_defined_alike_wherever_it_stands(self):
        definitions = self.schema()["$defs"]
        for name in TYPES:
            own = {key: one for key, one in self.schema(name)["$defs"].items() if key != "AnonymousBind"}
            self.assertEqual(own, {key: definitions[key] for key in own})

    def test_texts_and_defaults_are_there_for_an_editor(self):
        definitions = self.schema("WebService")["$defs"]
        header = definitions["WebService"]["properties"]["header"]["properties"]
        self.assertEqual(header["Content-Type"]["default"], "application/x-www-form-urlencoded")
        self.assertNotIn("default", header["Accept"])
        self.assertIn("POST", definitions["HTTP-method"]["anyOf"][0]["enum"])

    def test_brands_are_named(self):
        schema = self.schema()
        self.assertEqual(set(schema["then"]["properties"]), set(BRANDS))
        self.assertEqual(schema["else"]["properties"]["003"]["description"], "The section of the brand caldor.")

    def test_prints_canonically(self):
        output = self.done("schema", "Ads", "--compact").output
        self.assertEqual(output, json.dumps(json.loads(output), sort_keys=True, separators=(",", ":")) + "\n")

    def test_an_unknown_type_is_a_usage_error_that_names_those_near(self):
        self.assertTrue(self.own_failure(2, "usage", "schema", "Adz").endswith("; near it: Ads"))
        self.own_failure(2, "usage", "schema", "")
        self.own_failure(2, "usage", "schema", "Ads", "Auth")


class Sections(SchemaTest):
    def test_every_type_takes_what_its_reader_takes(self):
        for name in TYPES:
            self.assertEqual(list(self.validator(name).iter_errors(server_form(name))), [], name)

    def test_required_members_are_those_that_the_reader_asks_for(self):
        for name in ("Group", "WebService", "AnonymousBind", "Feature", "ConfigLayout", "Configuration"):
            validator = self.validator(name)
            whole = server_form(name)
            for key in whole:
                part = {other: whole[other] for other in whole if other != key}
                read = self.quorin("read", name, given=json.dumps(part)).status == 0
                self.assertEqual(validator.is_valid(part), read, (name, key))

    def test_a_name_of_its_own_counts_where_no_other_is(self):
        service = {**server_form("WebService"), "name": 5}
        self.assertFalse(self.validator("WebService").is_valid(service))
        self.assertTrue(self.validator("Configuration").is_valid({"webservices": {"login": service}}))
        self.assertEqual(self.findings({"webservices": {"login": service}}), [])

    def test_an_empty_object_is_no_feature(self):
        self.assertFalse(self.validator("Feature").is_valid({}))
        self.assertEqual(self.findings({"features": {"chat": {}}}), ["/features/chat"])

    def test_all_values_at_every_kind_of_field(self):
        validator = self.validator("Configuration")
        fields = (("profile", "limit"), ("common", "adChoices"), ("init", "isIRateEnabled"), ("auth", "preAuthChannels"),
                  ("videoPlayer", "ads"), ("application", "version"), ("layouts", "home"))
        for value in VALUES:
            document = {section: {key: value} for section, key in fields}
            document["groups"] = [value]
            document["webservices"] = {"login": {**server_form("WebService"), "method": value},
                                       "logout": {**server_form("WebService"), "header": {"Accept": value}}}
            errors = {unit(pointer_to(error.absolute_path)) for error in validator.iter_errors(document)}
            self.assertEqual(errors, {unit(pointer) for pointer in self.findings(document)}, value)

    def test_entries_agree_with_the_reader_one_by_one(self):
        chance = random.Random(1)
        validator = self.validator("Configuration")
        units = 0
        for _ in range(12):
            document = configuration(30)
            for key, section in document.items():
                for entry in (section.values() if isinstance(section, dict) else section):
                    if key in ("layouts", "features", "analytics", "webservices", "groups") and chance.random() < 0.6:
                        mutate(chance, entry)
            for key in ("init", "application", "auth", "common", "videoPlayer", "profile", "appversion"):
                if chance.random() < 0.6:
                    mutate(chance, document[key])
            document["layouts"].update({f"odd-{i}": any_value(chance) for i in range(10)})
            errors = {unit(pointer_to(error.absolute_path)) for error in validator.iter_errors(document)}
            self.assertEqual(errors, {unit(pointer) for pointer in self.findings(document)})
            units += sum(len(section) for section in document.values())
            self.assertGreater(len(errors), 20)
        self.assertGreater(units, 1500)


class Documents(SchemaTest):
    def test_a_brand_without_a_section_reads_the_document_itself(self):
        document = {"orvel": {}, "groups": [{"id": 1, "title": "t"}]}
        without = self.findings(document)
        self.assertEqual(without, ["/groups/0/id"])
        for brand in BRANDS:
            self.assertEqual(self.findings(document, brand), [] if brand == "orvel" else without)
        self.assertFalse(self.validator().is_valid(document))

    def test_services_of_the_root_stand_before_those_of_a_brand(self):
        wrong = {"wexley": {"webservices": {"login": {"method": 5}}}}
        validator = self.validator()
        for document, taken in ((wrong, False), ({**wrong, "webservices": {}}, True),
                                ({**wrong, "webservices": []}, False)):
            self.assertEqual((validator.is_valid(document), self.is_taken(document)), (taken, taken), document)

    def test_a_brand_that_is_no_object_is_passed_over(self):
        for value in (None, 5, "text", []):
            document = {"orvel": value}
            self.assertEqual(self.findings(document, "orvel"), [])
            self.assertTrue(self.validator().is_valid(document))

    def test_what_is_no_object_is_no_document(self):
        validator = self.validator()
        for value in (None, 1, "text", [], True):
            self.assertFalse(validator.is_valid(value))
            self.fails(1, "show", self.file("document.json", value))

    def test_samples_agree_place_by_place(self):
        validator = self.validator()
        for name, lost in (("minimal.json", 0), ("family.json", 12)):
            file = DOCUMENTS / name
            found = {pointer for brand in (None, *BRANDS) for pointer in self.findings(str(file), brand)}
            errors = {place_of(error) for error in validator.iter_errors(json.loads(file.read_text()))}
            self.assertEqual((errors, len(errors)), (found, lost), name)

    def test_documents_agree_with_the_reader(self):
        chance = random.Random(2)
        validator = self.validator()
        verdicts = []
        for _ in range(300):
            document = self.some_document(chance)
            verdicts.append(validator.is_valid(document))
            self.assertEqual(verdicts[-1], self.is_taken(document), json.dumps(document))
        self.assertGreater(min(verdicts.count(True), verdicts.count(False)), 75)

    def some_document(self, chance):
        """One section, or sections of brands with or without services at the root; spoiled at up to three places."""
        whole = configuration(chance.choice([0, 1, 2]))
        parts = {key: whole[key] for key in chance.sample(sorted(whole), chance.randrange(1, 5))}
        if chance.random() < 0.5:
            brands = chance.sample(BRANDS, chance.choice([1, 1, 2]))
            document = {name: copy.deepcopy(parts) for name in brands}
            if chance.random() < 0.5:
                document["webservices"] = {"login": server_form("WebService")}
        else:
            document = parts
        document[chance.choice(string.ascii_letters)] = any_value(chance)
        for _ in range(chance.choice([0, 1, 1, 2, 3])):
            mutate(chance, document)
        return document
