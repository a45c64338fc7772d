"""`encode` and `append`: queries and the URLs they become part of."""

from program import ProgramTest


class Encode(ProgramTest):
    def encoded(self, *pairs):
        return self.done("encode", *pairs).output

    def test_pairs_come_in_byte_order_of_their_keys(self):
        self.assertEqual(self.encoded("b=2", "a=1", "B=3", "é=4", "a-=5"), "B=3&a=1&a-=5&b=2&%C3%A9=4\n")

    def test_the_first_sign_divides(self):
        self.assertEqual(self.encoded("a=b=c", "d=="), "a=b%3Dc&d=%3D\n")

    def test_keys_and_values_may_be_empty(self):
        self.assertEqual(self.encoded("=v"), "=v\n")
        self.assertEqual(self.encoded("k=", "="), "=&k=\n")

    def test_of_equal_keys_the_last_counts(self):
        self.assertEqual(self.encoded("a=1", "b=2", "a=3", "b="), "a=3&b=\n")

    def test_reserved_characters_are_escaped(self):
        self.assertEqual(self.encoded("k=!*'();:@&=+$,/?%#[] "),
                         "k=%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%25%23%5B%5D%20\n")
        self.assertEqual(self.encoded("é😀=\x7f"), "%C3%A9%F0%9F%98%80=\x7f\n")

    def test_other_characters_of_ASCII_stay(self):
        self.assertEqual(self.encoded('a~="<>|^`{}\\-._'), 'a~="<>|^`{}\\-._\n')
        self.assertEqual(self.encoded("a=\t\x1b"), "a=\t\x1b\n")

    def test_pairs_that_are_not_UTF8_are_dropped_and_the_others_stay(self):
        self.assertEqual(self.encoded(b"\xff=1", "b=2", b"c=\xc3", "d=4", b"\xed\xa0\x80=5"), "b=2&d=4\n")

    def test_nothing_is_printed_where_no_pair_is_left(self):
        for pairs in ([], [b"\xff=1"], [b"a=\xff", b"\xfe=x"]):
            with self.subTest(pairs=pairs):
                self.assertIn("KEY=VALUE", self.own_failure(1, "noValue", "encode", *pairs))

    def test_a_bad_pair_hides_an_earlier_one_of_its_key(self):
        self.own_failure(1, "noValue", "encode", "a=1", b"a=\xff")

    def test_pairs_are_not_taken_apart(self):
        self.assertEqual(self.encoded("[a,b]=1"), "%5Ba%2Cb%5D=1\n")
        self.assertEqual(self.encoded("[a=1,b]"), "%5Ba=1%2Cb%5D\n")

    def test_pairs_that_look_like_options_stand_after_two_dashes(self):
        self.assertEqual(self.encoded("--", "--a=1", "-b=2", "--compact=3"), "--a=1&--compact=3&-b=2\n")
        self.own_failure(2, "usage", "encode", "--a=1")

    def test_a_pair_without_a_sign_is_a_usage_error(self):
        for pairs in (["a"], [""], ["a=1", "b"], [b"\xff"], ["[a,b]"]):
            with self.subTest(pairs=pairs):
                self.assertIn("KEY=VALUE", self.own_failure(2, "usage", "encode", *pairs))

    def test_many_and_large_pairs(self):
        pairs = [f"k{i:04}=v" for i in range(5000)]
        self.assertEqual(self.encoded(*reversed(pairs)), "&".join(pairs) + "\n")
        self.assertEqual(self.encoded("k=" + "&" * 100000), "k=" + "%26" * 100000 + "\n")


class Append(ProgramTest):
    def appended(self, url, param="a=1"):
        return self.done("append", "--", url, param).output

    def test_a_first_query_and_a_further_one(self):
        for url, whole in (("/p", "/p?a=1"), ("/p?x=2", "/p?x=2&a=1"), ("/p?", "/p?&a=1"), ("#f", "#f?a=1"),
                           ("/p?x#f", "/p?x#f&a=1"), ("", "?a=1"), ("http://h", "http://h?a=1")):
            with self.subTest(url=url):
                self.assertEqual(self.appended(url), whole + "\n")

    def test_text_that_is_no_URL_stays(self):
        for url in ("a b", "/{id}", "http://[::1", "%zz", "é", "[a,b]", "a\nb\t\x1b", "http://h:x/"):
            with self.subTest(url=url):
                self.assertEqual(self.appended(url), url + "\n")

    def test_the_text_is_taken_as_it_stands(self):
        for param in ("", "a b&c#d?", "%zz", "é{}", "[a,b]", "--a", "&", "a\tb\n\x01"):
            with self.subTest(param=param):
                self.assertEqual(self.appended("/p", param), "/p?" + param + "\n")

    def test_text_that_is_not_UTF8_is_a_usage_error(self):
        self.own_failure(2, "usage", "append", b"/\xff", "a")
        self.own_failure(2, "usage", "append", "/", b"\xff")
