# SPDX-License-Identifier: Apache-2.0
"""The binding's ctypes prototypes against the declarations of include/zuxml.h:
one prototype per exported function, each with the header's result and
argument types, and no function called that has none."""

import ast
import ctypes
import os
import re
import unittest
from pathlib import Path

from zuxml import _prototypes

PACKAGE = Path(_prototypes.__file__).resolve().parent
HEADER = Path(os.environ.get("ZUXML_HEADER", PACKAGE.parents[2] / "include" / "zuxml.h"))

_HANDLE = ctypes.c_void_p
# The header's types, as written without const, and the ctypes type for each.
_C_TYPES = {
    "int32_t": ctypes.c_int32,
    "uint32_t": ctypes.c_uint32,
    "uint16_t": ctypes.c_uint16,
    "ZuXmlDocument": _HANDLE,
    "ZuXmlNode": _HANDLE,
    "ZuXmlSax2Parser": _HANDLE,
    "void *": ctypes.c_void_p,
    "char *": ctypes.c_char_p,
    "ZuXmlWChar *": ctypes.POINTER(ctypes.c_uint16),
    "int32_t *": ctypes.POINTER(ctypes.c_int32),
    "uint64_t *": ctypes.POINTER(ctypes.c_uint64),
}


def _strip_comments(text):
    return re.sub(r"/\*.*?\*/|//[^\n]*", " ", text, flags=re.S)


def _type_of(declaration):
    """'const ZuXmlWChar *szName' -> 'ZuXmlWChar *'; a bare type stays as it is."""
    declaration = re.sub(r"\bconst\b", " ", declaration)
    declaration = re.sub(r"\s*\*\s*", " * ", declaration).split()
    if len(declaration) > 1 and declaration[-1] != "*":
        declaration = declaration[:-1]  # the parameter's name
    return " ".join(declaration)


def _types(arguments):
    arguments = " ".join(arguments.split())
    if arguments in ("", "void"):
        return []
    return [_type_of(argument) for argument in arguments.split(",")]


def read_header(path):
    """(functions, callbacks): name -> (result type, [argument types]) as C text."""
    text = _strip_comments(path.read_text(encoding="utf-8"))
    functions = {
        match.group(2): (_type_of(match.group(1)), _types(match.group(3)))
        for match in re.finditer(r"ZUXML_API\s+([\w\s\*]+?)\s*\b(ZuXml\w+)\s*\(([^)]*)\)\s*;", text)
    }
    callbacks = {
        match.group(2): (_type_of(match.group(1)), _types(match.group(3)))
        for match in re.finditer(r"typedef\s+(\w+)\s*\(\s*\*\s*(\w+)\s*\)\s*\(([^)]*)\)\s*;", text)
    }
    return functions, callbacks


def _names_used(module_path):
    """Every ZuXml name a module of the package refers to."""
    names = set()
    for node in ast.walk(ast.parse(module_path.read_text(encoding="utf-8"))):
        if isinstance(node, ast.Attribute):
            names.add(node.attr)
        elif isinstance(node, ast.Constant) and isinstance(node.value, str):
            names.add(node.value)
    return {name for name in names if re.fullmatch(r"ZuXml[A-Z]\w*", name)}


class HeaderPrototypesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.functions, cls.callbacks = read_header(HEADER)

    def expected(self, c_type):
        if c_type in self.callbacks:
            return _prototypes.CALLBACK_TYPES[c_type]
        return _C_TYPES[c_type]

    def test_the_header_is_read(self):
        self.assertEqual(len(self.functions), 65)
        self.assertEqual(len(self.callbacks), 13)
        self.assertEqual(self.functions["ZuXmlGetLocalNodeNameW"],
                         ("int32_t", ["ZuXmlDocument", "ZuXmlNode", "ZuXmlWChar *", "int32_t *",
                                      "ZuXmlWChar *", "int32_t *"]))

    def test_every_exported_function_has_one_prototype(self):
        self.assertEqual(sorted(_prototypes.PROTOTYPES), sorted(self.functions))

    def test_prototypes_carry_the_header_types(self):
        for name, (result, arguments) in self.functions.items():
            with self.subTest(function=name):
                restype, argtypes = _prototypes.PROTOTYPES[name]
                self.assertIs(restype, None if result == "void" else self.expected(result))
                self.assertEqual(argtypes, [self.expected(argument) for argument in arguments])

    def test_callback_types_carry_the_header_types(self):
        self.assertEqual(sorted(_prototypes.CALLBACK_TYPES), sorted(self.callbacks))
        for name, (result, arguments) in self.callbacks.items():
            with self.subTest(callback=name):
                kind = _prototypes.CALLBACK_TYPES[name]
                self.assertEqual(result, "void")
                self.assertIs(kind._restype_, None)
                self.assertEqual(list(kind._argtypes_), [self.expected(argument) for argument in arguments])

    def test_the_package_has_the_header_version(self):
        text = HEADER.read_text(encoding="utf-8")
        version = ".".join(re.search(r"#define ZUXML_VERSION_%s (\d+)" % part, text).group(1)
                           for part in ("MAJOR", "MINOR", "PATCH"))
        pyproject = (PACKAGE.parent / "pyproject.toml")
        if not pyproject.exists():
            self.skipTest("installed copy: pyproject.toml stays with the sources")
        self.assertIn('\nversion = "%s"\n' % version, pyproject.read_text(encoding="utf-8"))

    def test_the_package_calls_only_declared_functions(self):
        used = set()
        for module in sorted(PACKAGE.glob("*.py")):
            if module.name != "_prototypes.py":
                used |= _names_used(module)
        used.discard("ZuXmlError")  # the exception class, exported by name
        self.assertTrue(used)
        self.assertEqual(used - set(_prototypes.PROTOTYPES), set())


if __name__ == "__main__":
    unittest.main()
