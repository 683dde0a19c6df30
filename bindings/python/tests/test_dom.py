# SPDX-License-Identifier: Apache-2.0
"""Documents and nodes of the Python binding, run against the library named by ZUXML_LIBRARY."""

import ctypes
import unittest

import zuxml
from zuxml._text import buffer_to_str

from support import GREEK, NON_BMP, TemporaryDirectory, utf16_units


class DocumentTest(TemporaryDirectory):
    def test_non_ascii_text_and_attributes_survive_a_string_round_trip(self):
        with zuxml.Document.create("root") as doc:
            item = doc.root.append("item", text=GREEK)
            item["label"] = GREEK
            doc.root.append_comment(GREEK)
            xml = doc.to_string()
        with zuxml.Document.from_string(xml) as again:
            item = again.root.find("item")
            self.assertEqual(item.text, GREEK)
            self.assertEqual(item["label"], GREEK)
            self.assertEqual(again.root.find("#comment").text, GREEK)

    def test_non_bmp_text_survives_a_file_round_trip(self):
        path = self.path("non_bmp.xml")
        with zuxml.Document.create("root", namespace="urn:example:root") as doc:
            item = doc.root.append("p:item", text=NON_BMP, namespace="urn:example:p")
            item["value"] = NON_BMP
            doc.write(path)
        with zuxml.Document.from_file(path) as again:
            item = again.root.find("p:item")
            self.assertEqual(item.text, NON_BMP)
            self.assertEqual(item.get("value"), NON_BMP)
            self.assertEqual(item.local_name, "item")
            self.assertEqual(item.prefix, "p")
            self.assertEqual(item.namespace, "urn:example:p")
            self.assertEqual(again.root.namespace, "urn:example:root")

    def test_text_longer_than_the_first_buffer_is_fetched_again(self):
        # The binding starts with a buffer of 256 units; text around that size
        # takes the too-small path of the library and is asked for again.
        for count in (254, 255, 256, 257, 5000):
            with self.subTest(units=count):
                text = "𝄞" * (count // 2) + "x" * (count % 2)
                self.assertEqual(utf16_units(text), count)
                with zuxml.Document.create("root") as doc:
                    doc.root.text = text
                    self.assertEqual(doc.root.text, text)
                    self.assertIn(text, doc.to_string())

    def test_too_small_buffer_reports_the_length_and_writes_nothing(self):
        lib = zuxml.library()
        with zuxml.Document.create("root") as doc:
            doc.root.text = NON_BMP
            need = utf16_units(NON_BMP) + 1
            for given in (0, -1, need - 1):
                with self.subTest(length=given):
                    buffer = (ctypes.c_uint16 * max(need, 1))(*([0xAAAA] * max(need, 1)))
                    length = ctypes.c_int32(given)
                    answer = lib.ZuXmlGetNodeTextContentW(doc.handle, doc.root.handle, buffer, ctypes.byref(length))
                    self.assertEqual(answer, 0)
                    self.assertEqual(length.value, need)
                    self.assertTrue(all(unit == 0xAAAA for unit in buffer))
            buffer = (ctypes.c_uint16 * need)()
            length = ctypes.c_int32(need)
            self.assertEqual(lib.ZuXmlGetNodeTextContentW(doc.handle, doc.root.handle, buffer, ctypes.byref(length)), 1)
            self.assertEqual(length.value, need)
            self.assertEqual(buffer_to_str(buffer), NON_BMP)

    def test_tree_is_walked_and_edited(self):
        with zuxml.Document.from_string('<a x="1" y="2"><b>one</b><!--c--><d/></a>') as doc:
            root = doc.root
            self.assertEqual(root.name, "a")
            self.assertEqual(root.attributes, {"x": "1", "y": "2"})
            self.assertEqual([child.name for child in root], ["b", "#comment", "d"])
            self.assertEqual([child.type for child in root],
                             [zuxml.ELEMENT_NODE, zuxml.COMMENT_NODE, zuxml.ELEMENT_NODE])
            self.assertEqual(root.first_child.next_sibling.previous_sibling, root.first_child)
            self.assertEqual(root.last_child.parent, root)
            self.assertEqual(root.parent.type, zuxml.DOCUMENT_NODE)
            del root["x"]
            self.assertNotIn("x", root)
            root.find("d").remove()
            root.find("b").text = "two"
            self.assertEqual(doc.to_string().split("?>")[-1].strip(), '<a y="2"><b>two</b><!--c--></a>')

    def test_nodes_are_copied_between_documents(self):
        with zuxml.Document.from_string("<src><item k='v'>text</item></src>") as source, \
                zuxml.Document.create("dst") as target:
            copy = target.root.append_copy(source.root.find("item"))
            self.assertEqual(copy.text, "text")
            self.assertEqual(copy["k"], "v")
            self.assertIsNotNone(source.root.find("item"))

    def test_failures_raise(self):
        with zuxml.Document() as doc:
            with self.assertRaises(zuxml.ZuXmlError):
                doc.to_string()
            with self.assertRaises(zuxml.ZuXmlError):
                doc.parse("<unclosed>")
            with self.assertRaises(zuxml.ZuXmlError):
                doc.load(self.path("missing.xml"))
        with self.assertRaises(zuxml.ZuXmlError):
            zuxml.Document.create("not a name")

    def test_closed_document_and_its_nodes_are_refused(self):
        doc = zuxml.Document.create("root")
        root = doc.root
        doc.close()
        doc.close()
        self.assertTrue(doc.closed)
        with self.assertRaises(zuxml.ZuXmlError):
            doc.to_string()
        with self.assertRaises(zuxml.ZuXmlError):
            root.name

    def test_nodes_of_a_replaced_document_are_refused(self):
        with zuxml.Document.from_string("<one/>") as doc:
            old = doc.root
            doc.parse(b"<?xml version='1.0' encoding='UTF-8'?><two/>")
            self.assertEqual(doc.root.name, "two")
            with self.assertRaises(zuxml.ZuXmlError):
                old.name


if __name__ == "__main__":
    unittest.main()
