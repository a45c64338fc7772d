"""What the shared library exports, compared with what the public headers declare."""
import functools
import json
import re
import unittest

from packages import demangled, exported, fresh, include_all, installed, library_folder, run

ours = re.compile(r"QuorinConfigManager|quorin_|_Z(N[KRO]*|T[VTIS]N|ZN[KRO]*|GVZ?N[KRO]*|T[hvc].*_NK?)6quorin")
function_kinds = {"FunctionDecl", "CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl", "CXXConversionDecl"}
template_kinds = {"ClassTemplateDecl", "FunctionTemplateDecl", "ClassTemplateSpecializationDecl",
                  "ClassTemplatePartialSpecializationDecl", "VarTemplateDecl", "ConceptDecl"}
elsewhere = ["isImplicit", "explicitlyDeleted", "explicitlyDefaulted", "inline", "constexpr", "pure"]


@functools.cache
def library():
    return exported(library_folder(installed()) / "libQuorinConfigManager.so")


def complete_object(name):
    """Constructors and destructors come in two variants; the one that makes a whole object stands for both."""
    return re.sub(r"([CD])2(?=E)", r"\g<1>1", name)


def functions_of(node, declared, inline, objects):
    if node.get("kind") in template_kinds:
        return
    if node.get("kind") in function_kinds and "mangledName" in node:
        has_body = any(child.get("kind") == "CompoundStmt" for child in node.get("inner", []))
        found = inline if has_body or any(node.get(reason) for reason in elsewhere) else declared
        found.add(complete_object(node["mangledName"]))
        return
    if node.get("kind") == "VarDecl" and "mangledName" in node:
        objects.add(node["mangledName"])
    for child in node.get("inner", []):
        functions_of(child, declared, inline, objects)


@functools.cache
def declarations():
    """The functions that the public headers declare and leave to the library to define, and the objects that they declare
    at all: their mangled names."""
    folder = fresh("declared")
    text = run("clang++-19", "-std=c++20", "-I", installed() / "include", "-fsyntax-only", "-Xclang", "-ast-dump=json",
               "-Xclang", "-ast-dump-filter=uorin", include_all(folder))
    declared, inline, objects = set(), set(), set()
    decoder, at = json.JSONDecoder(), 0
    while at < len(text):
        node, at = decoder.raw_decode(text, at)
        functions_of(node, declared, inline, objects)
        while at < len(text) and text[at].isspace():
            at += 1
    return declared - inline, objects


def declared_functions():
    return declarations()[0]


class Symbols(unittest.TestCase):
    def test_stay_where_they_are_until_the_process_ends(self):
        dynamic = run("readelf", "-d", library_folder(installed()) / "libQuorinConfigManager.so")
        self.assertRegex(dynamic, r"FLAGS_1.*NODELETE")

    def test_are_ours(self):
        self.assertEqual(demangled(name for name in library() if not ours.match(name)), "")

    def test_are_there_for_every_declared_function(self):
        self.assertGreater(len(declared_functions()), 200)
        names = {complete_object(name) for name in library()}
        self.assertEqual(demangled(declared_functions() - names), "")

    def test_of_functions_are_declared_in_a_public_header(self):
        functions = {complete_object(name) for name, kind in library().items() if kind == "T"}
        self.assertEqual(demangled(functions - declared_functions()), "")

    def test_of_objects_are_declared_in_a_public_header(self):
        found = {name for name, kind in library().items() if kind in "uRDBVv" and not re.match("_ZT[VTIS]", name)}
        self.assertIn("QuorinConfigManagerVersionString", found)
        self.assertEqual(demangled(found - declarations()[1]), "")


if __name__ == "__main__":
    unittest.main()
