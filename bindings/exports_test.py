# SPDX-License-Identifier: Apache-2.0
"""Every binding declares exactly the functions of exports/ZUXML.def: the
Python prototypes, the .NET entry points and the Pascal unit with its
ordinals; the Pascal unit's version is the header's."""

import re
import sys
import unittest
from pathlib import Path

BINDINGS = Path(__file__).resolve().parent
ROOT = BINDINGS.parent

sys.path.insert(0, str(BINDINGS / "python"))
from zuxml import _prototypes  # noqa: E402  (the prototypes load no library)


def read_def():
    """name -> ordinal, second names included."""
    exports = {}
    for line in (ROOT / "exports" / "ZUXML.def").read_text(encoding="utf-8").splitlines():
        match = re.match(r"\s+(ZuXml\w+)(?:\s*=\s*\w+)?\s+@(\d+)\s*$", line)
        if match:
            exports[match.group(1)] = int(match.group(2))
    return exports


def header_version():
    text = (ROOT / "include" / "zuxml.h").read_text(encoding="utf-8")
    return tuple(int(re.search(r"#define ZUXML_VERSION_%s (\d+)" % part, text).group(1))
                 for part in ("MAJOR", "MINOR", "PATCH"))


class ExportsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.exports = read_def()

    def test_the_module_definition_is_read(self):
        self.assertEqual(len(self.exports), 65)
        self.assertEqual(self.exports["ZuXmlLoadFromFileW"], 702)

    def test_python_prototypes(self):
        self.assertEqual(sorted(_prototypes.PROTOTYPES), sorted(self.exports))

    def test_dotnet_entry_points(self):
        text = (BINDINGS / "dotnet" / "ZuXml.Net" / "NativeMethods.cs").read_text(encoding="utf-8")
        declarations = re.findall(
            r'\[DllImport\("zuxml", EntryPoint = "(\w+)", ExactSpelling = true,\s*'
            r'CallingConvention = CallingConvention\.Cdecl, CharSet = CharSet\.Unicode\)\]\s*'
            r'public static extern [\w\[\]]+ (\w+)\(', text)
        self.assertEqual(len(declarations), text.count("[DllImport("), "every import has the same form")
        for entry_point, method in declarations:
            self.assertEqual(entry_point, method)
        self.assertEqual(sorted(entry for entry, _ in declarations), sorted(self.exports))

    def test_pascal_names_and_ordinals(self):
        text = (BINDINGS / "pascal" / "zuxml.pas").read_text(encoding="utf-8")
        declarations = re.findall(
            r"\b(?:function|procedure)\s+(\w+)(?:(?!\bfunction\b|\bprocedure\b).)*?\bcdecl;\s*external "
            r"\{\$IFDEF MSWINDOWS\}'ZUXML\.dll' index (\d+)\{\$ELSE\}'zuxml' name '(\w+)'\{\$ENDIF\};",
            text, flags=re.S)
        self.assertEqual(len(declarations), len(re.findall(r"\bexternal\b", text)), "every import has the same form")
        for name, ordinal, bound in declarations:
            self.assertEqual(name, bound)
        self.assertEqual({name: int(ordinal) for name, ordinal, _ in declarations}, self.exports)
        self.assertEqual(len(declarations), len(self.exports), "no function is declared twice")

    def test_pascal_version_is_the_header_version(self):
        text = (BINDINGS / "pascal" / "zuxml.pas").read_text(encoding="utf-8")
        version = tuple(int(re.search(r"ZUXML_VERSION_%s = (\d+);" % part, text).group(1))
                        for part in ("MAJOR", "MINOR", "PATCH"))
        self.assertEqual(version, header_version())


if __name__ == "__main__":
    unittest.main()
