# SPDX-License-Identifier: Apache-2.0
"""What the binding's tests share: text outside ASCII and the BMP, and a
temporary directory per test."""

import os
import tempfile
import unittest

GREEK = "Καλημέρα, Grüße,日本語"
NON_BMP = "clef 𝄞, smile 😀, ideograph 𠀋"  # each of these is a surrogate pair in UTF-16


def utf16_units(text):
    return len(text.encode("utf-16-le")) // 2


class TemporaryDirectory(unittest.TestCase):
    def setUp(self):
        self._tmp = tempfile.TemporaryDirectory(prefix="zuxml_py_")
        self.dir = self._tmp.name

    def tearDown(self):
        self._tmp.cleanup()

    def path(self, name):
        return os.path.join(self.dir, name)
