// SPDX-License-Identifier: Apache-2.0
// The SAX2 family through NativeMethods alone: both callback tables, the
// context, locations, stopping and diagnostics.
using System;
using System.Collections.Generic;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;
using static ZuXml.NativeMethods;

namespace ZuXml.Tests
{
    internal static class RawSax2Tests
    {
        internal const string Items =
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!--before-->\n" +
            "<n:items xmlns:n=\"urn:n\" a=\"1\"><n:item id=\"x\">" + Texts.NonBmp + "<b/>tail</n:item>" +
            "<!--inside--></n:items>\n";

        // The events of Items between the document's start and end, as the tests write them down.
        internal static readonly string ItemsEvents = string.Join("\n", new[] {
            "comment 0 before",
            // Namespace declarations are not reported as attributes.
            "start 0 1 urn:n items n:items",
            "attribute 0 0 [] a a CDATA 1",
            "done 0",
            "start 1 1 urn:n item n:item",
            "attribute 1 0 [] id id CDATA x",
            "done 1",
            "start 2 0  b b",
            "done 2",
            "end 2 b []",
            "end 1 n:item [" + Texts.NonBmp + "tail]",
            "comment 1 inside",
            "end 0 n:items []",
        });

        internal static void WriteMany(string path, int count)
        {
            var text = new StringBuilder("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<items>\n");
            for (int index = 0; index < count; index++)
                text.AppendFormat("  <item n=\"{0}\">{1} {0}</item>\n", index, Texts.NonBmp);
            text.Append("</items>\n");
            File.WriteAllText(path, text.ToString(), new UTF8Encoding(false));
        }

        [Test]
        private static void WideTableReceivesEveryEventWithTheContext()
        {
            ZuXmlInit();
            using (var scratch = new Scratch())
            {
                string path = scratch.File("items.xml");
                File.WriteAllText(path, Items, new UTF8Encoding(false));
                var events = new List<string>();
                var context = new IntPtr(4242);
                IntPtr parser = ZuXmlCreateSax2Parser(context);
                ulong line = 0, column = 0;
                bool located = false;
                ZuXmlSax2StartDocumentCallback startDocument = (p, c) => events.Add("start-document " + (c == context));
                ZuXmlSax2EndDocumentCallback endDocument = (p, c) => events.Add("end-document " + (p == parser));
                ZuXmlSax2StartElementCallbackW startElement = (p, c, depth, count, uri, local, qname) =>
                {
                    events.Add(string.Format("start {0} {1} {2} {3} {4}", depth, count, uri, local, qname));
                    located |= ZuXmlGetSax2CurrentLocation(p, ref line, ref column) == 1;
                };
                ZuXmlSax2AttributeCallbackW attribute = (p, c, depth, index, uri, local, qname, type, value) =>
                    events.Add(string.Format("attribute {0} {1} [{2}] {3} {4} {5} {6}", depth, index, uri, local, qname, type, value));
                ZuXmlSax2AttributesDoneCallback done = (p, c, depth) => events.Add("done " + depth);
                ZuXmlSax2EndElementCallbackW endElement = (p, c, depth, uri, local, qname, text) =>
                    events.Add(string.Format("end {0} {1} [{2}]", depth, qname, text));
                ZuXmlSax2CommentCallbackW comment = (p, c, depth, text) => events.Add("comment " + depth + " " + text);
                ZuXmlSax2DiagnosticCallbackW diagnostic = (p, c, code, message) => events.Add("diagnostic " + code);
                ZuXmlSax2AttributeCallbackA narrowAttribute = (p, c, d, i, u, l, q, t, v) => events.Add("narrow attribute");
                Check.Equal(1, ZuXmlSetSax2ParserCallbacksW(parser, startDocument, endDocument, startElement, attribute,
                                                            done, endElement, comment, diagnostic), "wide table");
                // The narrow attribute entry makes AttributesDone arrive; it is never called itself.
                Check.Equal(1, ZuXmlSetSax2ParserCallbacksA(parser, null, null, null, narrowAttribute, null, null, null,
                                                            null), "narrow table");
                Check.Equal(1, ZuXmlSax2LoadFromFileW(parser, path, 0), "one-shot load");
                GC.KeepAlive(new Delegate[] { startDocument, endDocument, startElement, attribute, done, endElement,
                                              comment, diagnostic, narrowAttribute });
                string expected = "start-document True\n" + ItemsEvents + "\nend-document True";
                Check.Equal(expected, string.Join("\n", events), "events");
                Check.True(located && line >= 3, "the location is known inside a callback");
                Check.Equal(0, ZuXmlGetSax2CurrentLocation(parser, ref line, ref column), "and not after the load");
                ZuXmlReleaseSax2Parser(parser);
            }
            ZuXmlCleanup();
        }

        [Test]
        private static void NarrowTableReceivesLocaleText()
        {
            ZuXmlInit();
            using (var scratch = new Scratch())
            {
                string path = scratch.File("narrow.xml");
                File.WriteAllText(path, "<a x='1'><b>text</b><!--c--></a>");
                var events = new List<string>();
                IntPtr parser = ZuXmlCreateSax2Parser(IntPtr.Zero);
                ZuXmlSax2StartElementCallbackA start = (p, c, depth, count, uri, local, qname) =>
                    events.Add("start " + Marshal.PtrToStringAnsi(qname) + " " + count);
                ZuXmlSax2AttributeCallbackA attribute = (p, c, depth, index, uri, local, qname, type, value) =>
                    events.Add("attribute " + Marshal.PtrToStringAnsi(qname) + "=" + Marshal.PtrToStringAnsi(value));
                ZuXmlSax2AttributesDoneCallback done = (p, c, depth) => events.Add("done");
                ZuXmlSax2EndElementCallbackA end = (p, c, depth, uri, local, qname, text) =>
                    events.Add("end " + Marshal.PtrToStringAnsi(qname) + " " + Marshal.PtrToStringAnsi(text));
                ZuXmlSax2CommentCallbackA comment = (p, c, depth, text) => events.Add("comment " + Marshal.PtrToStringAnsi(text));
                ZuXmlSax2DiagnosticCallbackA diagnostic = (p, c, code, message) => events.Add("diagnostic");
                Check.Equal(1, ZuXmlSetSax2ParserCallbacksA(parser, null, null, start, attribute, done, end, comment,
                                                            diagnostic), "narrow table");
                Check.Equal(1, ZuXmlSax2LoadFromFileA(parser, Encoding.ASCII.GetBytes(path + "\0"), 1), "progressive load");
                GC.KeepAlive(new Delegate[] { start, attribute, done, end, comment, diagnostic });
                Check.Equal("start a 1,attribute x=1,done,start b 0,done,end b text,comment c,end a ",
                            string.Join(",", events), "narrow events");
                ZuXmlReleaseSax2Parser(parser);
            }
            ZuXmlCleanup();
        }

        [Test]
        private static void StopFromACallbackEndsAProgressiveLoad()
        {
            ZuXmlInit();
            using (var scratch = new Scratch())
            {
                string path = scratch.File("many.xml");
                WriteMany(path, 20000);
                int seen = 0;
                IntPtr parser = ZuXmlCreateSax2Parser(IntPtr.Zero);
                ZuXmlSax2StartElementCallbackW start = (p, c, depth, count, uri, local, qname) =>
                {
                    if (++seen == 10)
                        ZuXmlSax2StopLoadFromFile(p);
                };
                ZuXmlSetSax2ParserCallbacksW(parser, null, null, start, null, null, null, null, null);
                Check.Equal(1, ZuXmlSax2LoadFromFileW(parser, path, 1), "a stopped load answers 1");
                Check.True(seen >= 10 && seen < 20000, "the load stopped early: " + seen);
                seen = 0;
                Check.Equal(1, ZuXmlSax2LoadFromFileW(parser, path, 0), "one-shot load");
                Check.Equal(20001, seen, "a one-shot load is not stopped");
                GC.KeepAlive(start);
                ZuXmlReleaseSax2Parser(parser);
            }
            ZuXmlCleanup();
        }

        [Test]
        private static void DiagnosticsCarryTheirSeverity()
        {
            ZuXmlInit();
            using (var scratch = new Scratch())
            {
                string path = scratch.File("broken.xml");
                File.WriteAllText(path, "<a><b></a>");
                var codes = new List<int>();
                IntPtr parser = ZuXmlCreateSax2Parser(IntPtr.Zero);
                ZuXmlSax2DiagnosticCallbackW diagnostic = (p, c, code, message) =>
                {
                    if (message.Length > 0)
                        codes.Add(code);
                };
                ZuXmlSetSax2ParserCallbacksW(parser, null, null, null, null, null, null, null, diagnostic);
                ZuXmlSax2LoadFromFileW(parser, path, 0);
                GC.KeepAlive(diagnostic);
                Check.True(codes.Contains(21), "a fatal error arrives as 21");
                ZuXmlReleaseSax2Parser(parser);
            }
            ZuXmlCleanup();
        }
    }
}
