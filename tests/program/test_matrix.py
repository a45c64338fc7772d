"""`matrix`: what the apps of each brand see, field by field, side by side."""

import csv
import html.parser
import io
import json

from program import ProgramTest
from server import Server, answer

SERVICES = {"login": {"url": {"value": "https://host/login"}, "method": "post"}}
DOCUMENT = {
    "webservices": SERVICES,
    "orvel": {"videoPlayer": {"ads": {"freeTime": 5}}, "common": {"termsOfUse": "t"}},
    "bris": {"videoPlayer": {"ads": {"freeTime": 5}}, "common": {}},
    "pel": {"videoPlayer": {"ads": {"freeTime": 7}}},
}
WHOLE = "whole document"


class Page(html.parser.HTMLParser):
    """What a browser finds in a page."""

    VOID = {"meta"}

    def __init__(self, text):
        super().__init__()
        self.open = []
        self.tags = []
        self.rows = []
        self.outliers = []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.tags.append((tag, attributes))
        if tag not in self.VOID:
            self.open.append(tag)
        if tag == "tr":
            self.rows.append([])
        if tag in ("th", "td"):
            self.rows[-1].append("")
            if attributes.get("class") == "outlier":
                self.outliers.append((self.rows[-1][0], self.rows[0][len(self.rows[-1]) - 1]))

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag

    def handle_data(self, data):
        if "td" in self.open or "th" in self.open:
            self.rows[-1][-1] += data


class MatrixTest(ProgramTest):
    def matrix(self, document, form):
        run = self.done("matrix", self.file("d.json", document), "--format", form)
        return run

    def rows(self, document):
        return {row["path"]: row for row in self.matrix(document, "json").json["rows"]}

    def csv(self, document):
        text = self.matrix(document, "csv").output
        return list(csv.reader(io.StringIO(text, newline=""), strict=True))

    def page(self, document):
        page = Page(self.matrix(document, "html").output)
        self.assertEqual(page.open, [])
        return page

    def lines(self, document):
        return self.matrix(document, "text").output.splitlines()


class Values(MatrixTest):
    def test_a_column_for_each_brand_with_a_section_and_one_for_the_others(self):
        columns = self.matrix(DOCUMENT, "json").json["columns"]
        self.assertEqual([(column["name"], column["section"]) for column in columns],
                         [("orvel", "orvel"), ("brisan", "bris"), ("pellow", "pel"), (WHOLE, None)])
        self.assertEqual(sum(len(column["brands"]) for column in columns), 9)

    def test_nobody_reads_the_whole_document_where_all_have_sections(self):
        document = {name: {} for name in ("orvel", "bris", "003", "pel", "qnt", "tvs", "voss", "wexley", "unknown")}
        self.assertNotIn(WHOLE, self.matrix(document, "text").output)

    def test_root_web_services_stand_in_every_column(self):
        values = self.rows(DOCUMENT)["webservices.login.url"]["values"]
        self.assertEqual(values, dict.fromkeys(("orvel", "brisan", "pellow", WHOLE), "https://host/login"))

    def test_every_field_of_an_endpoint_has_a_row(self):
        paths = [path for path in self.rows(DOCUMENT) if path.startswith("webservices")]
        self.assertEqual(paths, ["webservices.login.url", "webservices.login.method", "webservices.login.Content-Type"])

    def test_values_are_what_apps_read(self):
        rows = self.rows({"auth": {"sso": 0.5}, "videoPlayer": {"ads": {"freeTime": 5.9, "timeout": "x"}},
                          "unknown member": 1})
        self.assertEqual({path: row["values"][WHOLE] for path, row in rows.items()},
                         {"auth.sso": True, "videoPlayer.ads.freeTime": 5})

    def test_an_absent_value_is_left_out_and_an_empty_section_is_not(self):
        rows = self.rows(DOCUMENT)
        self.assertEqual(rows["common"]["values"], {"brisan": {}})
        self.assertEqual(rows["common.termsOfUse"]["values"], {"orvel": "t"})

    def test_empty_maps_lists_and_entries_stand_there(self):
        rows = self.rows({"groups": [], "features": {}, "analytics": {"a": {}}, "layouts": {"l": {}}})
        self.assertEqual({path: row["values"][WHOLE] for path, row in rows.items()},
                         {"groups": [], "features": {}, "analytics.a": {}, "layouts.l": {"id": "l"}})

    def test_lists_and_features_have_a_row_for_each_value(self):
        rows = self.rows({"groups": [{"id": "g", "title": "T"}], "features": {"f": {"x": {"y": 1}, "z": None}}})
        self.assertEqual({path: row["values"][WHOLE] for path, row in rows.items()},
                         {"features.f.x.y": 1, "features.f.z": None, "groups[0].id": "g", "groups[0].title": "T"})


class Outliers(MatrixTest):
    def outliers(self, *values):
        """The outliers among brands of these values; None is absent."""
        names = ("orvel", "bris", "003", "pel", "qnt")
        sections = {name: {"common": {} if value is None else {"termsOfUse": value}}
                    for name, value in zip(names, values)}
        return self.rows({**sections, "common": {"termsOfUse": "root"}})["common.termsOfUse"]["outliers"]

    def test_one_that_differs_from_most(self):
        self.assertEqual(self.outliers("a", "a", "b"), ["caldor"])
        self.assertEqual(self.outliers("b", "a", "a", "a", "c"), ["orvel", "quintar"])

    def test_none_where_no_value_is_that_of_more_than_half(self):
        self.assertEqual(self.outliers("a", "b"), [])
        self.assertEqual(self.outliers("a", "a", "b", "b"), [])
        self.assertEqual(self.outliers("a", "a", "b", "c"), [])
        self.assertEqual(self.outliers("a", "b", "c"), [])

    def test_absence_counts_as_a_value(self):
        self.assertEqual(self.outliers("a", "a", None), ["caldor"])
        self.assertEqual(self.outliers(None, None, "a"), ["caldor"])

    def test_those_who_read_the_whole_document_neither_count_nor_are_marked(self):
        self.assertEqual(self.outliers("a", "a", "a"), [])

    def test_values_that_read_the_same_are_the_same(self):
        document = {name: {"auth": {"sso": value}} for name, value in (("orvel", True), ("bris", 1), ("pel", 2.5))}
        self.assertEqual(self.rows(document)["auth.sso"]["outliers"], [])

    def test_all_forms_mark_them(self):
        path = "videoPlayer.ads.freeTime"
        line, = (line for line in self.lines(DOCUMENT) if line.startswith(path))
        self.assertEqual(line.split(), [path, "5", "5", "*", "7", "-"])
        self.assertEqual({row[0]: row[-1] for row in self.csv(DOCUMENT)}[path], "pellow")
        self.assertIn((path, "pellow"), self.page(DOCUMENT).outliers)


class Text(MatrixTest):
    def test_the_legend_names_those_who_read_the_whole_document(self):
        self.assertEqual(self.lines(DOCUMENT)[-1],
                         "The whole document is read by caldor, quintar, tavish, vossen, wexley, unknown.")

    def test_long_values_are_cut(self):
        self.assertLess(max(map(len, self.lines({"common": {"termsOfUse": "x" * 10_000}}))), 120)

    def test_an_empty_document_has_no_rows(self):
        lines = self.lines({})
        self.assertEqual((len(lines), lines[0].split()), (2, ["FIELD", "whole", "document"]))


class CSV(MatrixTest):
    def value(self, text):
        """What stands in the cell of a text."""
        rows = self.csv({"common": {"termsOfUse": text}})
        self.assertEqual([row[0] for row in rows], ["field", "common.termsOfUse"])
        return rows[1][1]

    def test_rows_are_of_one_width_and_end_as_they_must(self):
        text = self.matrix(DOCUMENT, "csv").output_bytes
        self.assertEqual(text.count(b"\r\n"), text.count(b"\n"))
        self.assertTrue(text.endswith(b"\r\n"))
        self.assertEqual({len(row) for row in self.csv(DOCUMENT)}, {6})

    def test_the_head_names_the_columns(self):
        self.assertEqual(self.csv(DOCUMENT)[0], ["field", "orvel", "brisan", "pellow", WHOLE, "outliers"])

    def test_texts_come_out_as_they_are(self):
        for text in ("plain", 'a "quoted" text', "a,b;c\td".replace("\t", " "), "é", "'", ",", '"'):
            with self.subTest(text=text):
                self.assertEqual(self.value(text), text)

    def test_what_begins_like_a_formula_gets_an_apostrophe(self):
        for text in ("=1+1", "+1", "-1", "@SUM(A1)", '=HYPERLINK("http://x","y")', "＝1", "＋1", "－1", "＠x"):
            with self.subTest(text=text):
                self.assertEqual(self.value(text), "'" + text)

    def test_no_cell_at_all_begins_like_a_formula_but_numbers(self):
        document = {"features": {"=f": {"=1": "=1", "n": -5}}, "groups": [{"id": "=", "title": "+"}]}
        cells = [cell for row in self.csv(document) for cell in row]
        self.assertEqual([cell for cell in cells if cell.startswith(("=", "+", "-", "@"))], ["-5"])

    def test_control_characters_are_escaped_so_that_a_row_is_a_line(self):
        self.assertEqual(self.value("\t=1\r\n\x1b"), "\\u0009=1\\u000d\\u000a\\u001b")

    def test_absent_and_empty_are_told_apart(self):
        rows = {row[0]: row[1:-1] for row in self.csv({"orvel": {"common": {"termsOfUse": ""}}})}
        self.assertEqual(rows["common.termsOfUse"], ['""', ""])


class HTML(MatrixTest):
    def test_the_table_holds_every_value(self):
        rows = self.page(DOCUMENT).rows
        self.assertEqual(rows[0], ["field", "orvel", "brisan", "pellow", WHOLE])
        self.assertIn(["common.termsOfUse", '"t"', "absent", "absent", "absent"],
                      [[cell.removesuffix(" (outlier)") for cell in row] for row in rows])
        self.assertEqual({len(row) for row in rows}, {5})

    def test_it_is_whole_by_itself_and_needs_no_script(self):
        page = self.page(DOCUMENT)
        names = {tag for tag, _ in page.tags}
        self.assertFalse(names & {"script", "link", "img", "iframe", "object", "base", "a", "form"})
        for _, attributes in page.tags:
            self.assertFalse({name for name in attributes if name.startswith("on") or name in ("src", "href")})
        policy = [of["content"] for _, of in page.tags if of.get("http-equiv") == "Content-Security-Policy"]
        self.assertEqual(policy, ["default-src 'none'; style-src 'unsafe-inline'"])

    def test_it_has_what_readers_of_all_kinds_need(self):
        page = self.page(DOCUMENT)
        self.assertIn(("html", {"lang": "en"}), page.tags)
        self.assertIn(("meta", {"name": "color-scheme", "content": "light dark"}), page.tags)
        region, = (of for tag, of in page.tags if of.get("role") == "region")
        self.assertEqual((region["tabindex"], region["aria-labelledby"]), ("0", "caption"))
        self.assertIn(("caption", {"id": "caption"}), page.tags)
        heads = [of["scope"] for tag, of in page.tags if tag == "th"]
        self.assertEqual((heads.count("col"), heads.count("row")), (5, len(page.rows) - 1))

    def test_an_outlier_is_told_in_words(self):
        row, = (row for row in self.page(DOCUMENT).rows if row[0] == "videoPlayer.ads.freeTime")
        self.assertEqual(row[3], "7 (outlier)")

    def test_markup_in_names_and_values_is_text(self):
        evil = "</td></table><script>alert(1)</script><img src=x onerror='a'>&lt;\"'"
        page = self.page({"features": {evil: {evil: evil}}})
        self.assertNotIn("script", {tag for tag, _ in page.tags})
        self.assertEqual(page.rows[1][1], json.dumps(evil))
        self.assertTrue(page.rows[1][0].startswith('features["</td></table><script>'))

    def test_the_document_is_named_without_the_secrets_of_its_url(self):
        with Server({"/d.json": answer(json.dumps(DOCUMENT).encode())}) as server:
            url = server.url("/d.json?token=SECRET").replace("://", "://user:SECRET@")
            output = self.done("matrix", url, "--format", "html").output
        self.assertIn("/d.json", output)
        self.assertNotIn("SECRET", output)

    def test_a_file_name_is_escaped(self):
        name = self.file("<b>&.json", {})
        self.assertIn("&lt;b&gt;&amp;.json", self.done("matrix", name, "--format", "html").output)


class Sources(MatrixTest):
    def test_standard_input(self):
        self.assertEqual(self.done("matrix", "-", "--format", "json", given=json.dumps(DOCUMENT)).output,
                         self.matrix(DOCUMENT, "json").output)

    def test_trouble(self):
        self.own_failure(1, "file", "matrix", "missing.json")
        for content in ("[]", "{", ""):
            self.own_failure(1, "notRead", "matrix", self.file("bad.json", content))
        self.fails(2, "matrix")
        self.fails(2, "matrix", self.file("d.json", {}), "--format", "markdown")


class Hostile(MatrixTest):
    def test_no_form_prints_control_characters(self):
        evil = "".join(map(chr, [*range(32), 127, *range(128, 160)]))
        document = {"features": {evil: {evil: evil}}, "common": {"termsOfUse": evil}}
        for form in ("text", "csv", "html"):
            with self.subTest(form=form):
                output = self.matrix(document, form).output.replace("\r\n" if form == "csv" else "\n", "")
                self.assertEqual([c for c in output if ord(c) < 32 or 127 <= ord(c) < 160], [])

    def test_twenty_thousand_endpoints(self):
        services = {f"s{i}": {"url": {"value": "u"}, "method": "get"} for i in range(20_000)}
        document = self.file("d.json", {"webservices": services, "orvel": {}, "pel": {}})
        for form in ("text", "csv", "html"):
            with self.subTest(form=form):
                output = self.done("matrix", document, "--format", form).output
                self.assertEqual(output.count("webservices.s"), 60_000)

    def test_a_name_of_megabytes_above_many_fields(self):
        document = {"features": {"n" * 2_000_000: {str(i): i for i in range(20_000)}}}
        for form in ("text", "csv", "html", "json"):
            with self.subTest(form=form):
                self.assertLess(len(self.matrix(document, form).output), 20_000 * 400)

    def test_objects_that_stand_as_deep_as_may_be(self):
        rows = self.rows('{"features":{"f":' + '{"a":' * 500 + "1" + "}" * 502)
        self.assertEqual(list(rows), ["features.f" + ".a" * 9])
