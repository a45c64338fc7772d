"""`brand`: the table of all brands, and what texts name."""

from program import ProgramTest

FIELDS = ("case", "rawValue", "ID", "analyticsID", "appName", "legacyID", "resourceID", "hashValue")
BRANDS = [("orvel", "orvel", "orvel", "orvel", "orvel", "001", "Orvel", 0),
          ("brisan", "bris", "bris", "bris", "bris", "002", "Brisan", 1),
          ("caldor", "003", "003", "003", "003", "003", "Orvel", 2),
          ("pellow", "pel", "pel", "plw", "pel", "004", "Pellow", 3),
          ("quintar", "qnt", "qnt", "qnt", "qnt", "008", "Quintar", 4),
          ("tavish", "tvs", "tvs", "tvs", "tvs", "009", "Tavish", 5),
          ("vossen", "voss", "voss", "vsn", "Voss", "011", "Vossen", 6),
          ("wexley", "wexley", "wexley", "wexley", "wexley", "005", "Orvel", 7),
          ("unknown", "unknown", "unknown", "unknown", "unknown", "000", "000", 8)]
SPELLINGS = {"orvel": ["orvel", "001"], "brisan": ["bris", "002", "brisan"], "caldor": ["003"],
             "pellow": ["pel", "pl", "plw", "004", "pellow"], "quintar": ["qnt", "008", "quintar"],
             "tavish": ["tvs", "009", "tavish"], "vossen": ["voss", "011", "vossen", "vsn"],
             "wexley": ["005", "wexley"],
             "unknown": ["unknown", "000", "", "Orvel", "Pellow", "Voss", " orvel", "caldor", "[plw,011]", "{}", "%%"]}


class Brands(ProgramTest):
    def test_all_nine_in_their_order(self):
        expected = [{"input": None, **dict(zip(FIELDS, brand))} for brand in BRANDS]
        self.assertEqual(self.done("brand", "--json").json, expected)

    def test_each_text_in_the_order_given(self):
        texts = [(text, name) for name, spellings in SPELLINGS.items() for text in spellings]
        rows = self.done("brand", *(text for text, _ in texts), "--json").json
        self.assertEqual([(row["input"], row["case"]) for row in rows], texts)
        for row in rows:
            self.assertEqual(tuple(row[field] for field in FIELDS), BRANDS[row["hashValue"]])

    def test_a_text_may_come_twice(self):
        self.assertEqual([row["input"] for row in self.done("brand", "pl", "pl", "--json").json], ["pl", "pl"])

    def test_the_tables(self):
        lines = self.done("brand").output.splitlines()
        self.assertEqual(len(lines), 10)
        for line, brand in zip(lines[1:], BRANDS):
            for cell in brand[:7]:
                self.assertIn(cell, line)
        lines = self.done("brand", "plw", "none").output.splitlines()
        self.assertEqual(len(lines), 3)
        self.assertRegex(lines[1], r"^plw +pellow ")
        self.assertRegex(lines[2], r"^none +unknown ")

    def test_a_compact_list_is_one_line(self):
        self.assertEqual(self.done("brand", "003", "--json", "--compact").output,
                         '[{"ID":"003","analyticsID":"003","appName":"003","case":"caldor","hashValue":2,"input":"003",'
                         '"legacyID":"003","rawValue":"003","resourceID":"Orvel"}]\n')
