# SPDX-License-Identifier: Apache-2.0
"""The SAX2 parser of the Python binding, run against the library named by ZUXML_LIBRARY."""

import unittest

import zuxml

from support import GREEK, NON_BMP, TemporaryDirectory


def write_items(path, count):
    with open(path, "w", encoding="utf-8") as out:
        out.write('<?xml version="1.0" encoding="UTF-8"?>\n<items xmlns:n="urn:example:n">\n')
        out.write("  <!-- %s -->\n" % NON_BMP)
        for index in range(count):
            out.write('  <n:item n:id="%d" note="%s">%s %d</n:item>\n' % (index, GREEK, NON_BMP, index))
        out.write("</items>\n")


class Sax2ParserTest(TemporaryDirectory):
    def test_events_carry_non_bmp_text_and_attributes(self):
        path = self.path("items.xml")
        write_items(path, 3)
        events = []
        with zuxml.Sax2Parser(
            start_document=lambda: events.append(("start-document",)),
            end_document=lambda: events.append(("end-document",)),
            start_element=lambda *args: events.append(("start",) + args),
            attribute=lambda *args: events.append(("attribute",) + args),
            attributes_done=lambda depth: events.append(("done", depth)),
            end_element=lambda *args: events.append(("end",) + args),
            comment=lambda *args: events.append(("comment",) + args),
        ) as parser:
            parser.parse(path)
        self.assertEqual(events[0], ("start-document",))
        self.assertEqual(events[1], ("start", 0, 0, "", "items", "items"))
        self.assertEqual(events[2], ("done", 0))
        self.assertEqual(events[3], ("comment", 1, " %s " % NON_BMP))
        self.assertEqual(events[4], ("start", 1, 2, "urn:example:n", "item", "n:item"))
        self.assertEqual(events[5], ("attribute", 1, 0, "urn:example:n", "id", "n:id", "CDATA", "0"))
        self.assertEqual(events[6], ("attribute", 1, 1, "", "note", "note", "CDATA", GREEK))
        self.assertEqual(events[7], ("done", 1))
        self.assertEqual(events[8], ("end", 1, "urn:example:n", "item", "n:item", "%s 0" % NON_BMP))
        self.assertEqual(events[-1], ("end-document",))

    def test_stop_from_a_callback_ends_a_progressive_parse(self):
        path = self.path("many.xml")
        write_items(path, 20000)
        seen = []
        positions = []

        def start_element(depth, count, uri, local_name, qname):
            if depth == 1:
                seen.append(qname)
                if len(seen) == 10:
                    positions.append(parser.location())
                    parser.stop()

        with zuxml.Sax2Parser(start_element=start_element) as parser:
            parser.parse(path, progressive=True)
            # The current step finishes, then no further step is taken.
            self.assertGreaterEqual(len(seen), 10)
            self.assertLess(len(seen), 20000)
            self.assertIsNotNone(positions[0])
            self.assertGreater(positions[0][0], 10)
            # The parse is over: no position is known any more.
            self.assertIsNone(parser.location())

    def test_an_exception_in_a_callback_stops_the_parse_and_is_raised(self):
        path = self.path("many.xml")
        write_items(path, 20000)
        calls = []

        def end_element(depth, uri, local_name, qname, text):
            calls.append(qname)
            if len(calls) == 3:
                raise RuntimeError("enough")

        with zuxml.Sax2Parser(end_element=end_element) as parser:
            with self.assertRaisesRegex(RuntimeError, "enough"):
                parser.parse(path)
        self.assertLess(len(calls), 20000)

    def test_handler_object_methods_and_diagnostics(self):
        path = self.path("broken.xml")
        with open(path, "w", encoding="utf-8") as out:
            out.write("<a><b></a>")

        class Handler:
            def __init__(self):
                self.codes = []

            def diagnostic(self, code, message):
                self.codes.append((code, bool(message)))

        handler = Handler()
        with zuxml.Sax2Parser(handler) as parser:
            try:
                parser.parse(path)
            except zuxml.ZuXmlError:
                pass
        self.assertIn((zuxml.SAX2_FATAL_ERROR, True), handler.codes)

    def test_closed_parser_is_refused(self):
        parser = zuxml.Sax2Parser()
        parser.close()
        parser.close()
        with self.assertRaises(zuxml.ZuXmlError):
            parser.parse(self.path("any.xml"))


if __name__ == "__main__":
    unittest.main()
