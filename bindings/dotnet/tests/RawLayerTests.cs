// SPDX-License-Identifier: Apache-2.0
// Every family of the interface through NativeMethods alone, wide and narrow.
using System;
using System.Collections.Generic;
using System.IO;
using System.Text;
using static ZuXml.NativeMethods;

namespace ZuXml.Tests
{
    internal static class RawLayerTests
    {
        private delegate int WideGetter(char[] buffer, ref int length);
        private delegate int NarrowGetter(byte[] buffer, ref int length);

        // Narrow text in the "C" locale of a process that never set one: ASCII.
        private static byte[] A(string text)
        {
            return text == null ? null : Encoding.ASCII.GetBytes(text + "\0");
        }

        private static string FromA(byte[] buffer)
        {
            int end = Array.IndexOf(buffer, (byte)0);
            return Encoding.ASCII.GetString(buffer, 0, end < 0 ? buffer.Length : end);
        }

        /// <summary>Runs a wide getter through the protocol, checking each step of it.</summary>
        private static string ReadW(WideGetter getter)
        {
            int length = 0;
            Check.Equal(0, getter(null, ref length), "asking with no buffer answers 0");
            Check.True(length > 0, "the length needed is reported");
            int need = length;
            var small = new char[need - 1];
            int smallLength = need - 1;
            Check.Equal(0, getter(small, ref smallLength), "a buffer one short answers 0");
            Check.Equal(need, smallLength, "and reports the same length");
            var buffer = new char[need];
            Check.Equal(1, getter(buffer, ref length), "a buffer of the reported length answers 1");
            Check.Equal(need, length, "the length is left as it was");
            Check.Equal('\0', buffer[need - 1], "the text is terminated");
            return new string(buffer, 0, need - 1);
        }

        private static string ReadA(NarrowGetter getter)
        {
            int length = 0;
            Check.Equal(0, getter(null, ref length), "asking with no buffer answers 0");
            var buffer = new byte[length];
            Check.Equal(1, getter(buffer, ref length), "a buffer of the reported length answers 1");
            return FromA(buffer);
        }

        [Test]
        private static void LifecycleNamesShareTheirEntries()
        {
            Check.Equal(1, ZuXmlInit(), "ZuXmlInit");
            Check.Equal(1, ZuXmlSax2Init(), "ZuXmlSax2Init");
            // Xerces counts initialisations: two terminations leave none open of these two.
            Check.Equal(1, ZuXmlSax2Cleanup(), "ZuXmlSax2Cleanup");
            Check.Equal(1, ZuXmlCleanup(), "ZuXmlCleanup");
            Check.Equal(1, ZuXmlReleaseDocument(IntPtr.Zero), "releasing NULL");
            Check.Equal(1, ZuXmlReleaseSax2Parser(IntPtr.Zero), "releasing NULL parser");
        }

        [Test]
        private static void DocumentsAreCreatedLoadedWrittenAndReleased()
        {
            Check.Equal(1, ZuXmlInit(), "init");
            using (var scratch = new Scratch())
            {
                IntPtr empty = ZuXmlCreateDocument();
                Check.True(empty != IntPtr.Zero, "an empty handle");
                Check.Equal(IntPtr.Zero, ZuXmlGetRootNode(empty), "an empty handle has no root");
                int length = 100;
                Check.Equal(0, ZuXmlWriteToStringW(empty, new char[100], ref length), "no document to write");
                Check.Equal(100, length, "a failure leaves the length alone");

                byte[] bytes = Encoding.UTF8.GetBytes("<?xml version='1.0' encoding='UTF-8'?><a x='1'>" + Texts.Greek + "</a>");
                Check.Equal(1, ZuXmlLoadFromBufA(empty, bytes, (uint)bytes.Length), "bytes load");
                Check.Equal(Texts.Greek, ReadW((char[] b, ref int l) =>
                    ZuXmlGetNodeTextContentW(empty, ZuXmlGetRootNode(empty), b, ref l)), "text of the bytes");
                string xml = "<b>" + Texts.NonBmp + "</b>";
                Check.Equal(1, ZuXmlLoadFromBufW(empty, xml, (uint)xml.Length), "UTF-16 load");
                Check.Equal("b", ReadW((char[] b, ref int l) =>
                    ZuXmlGetNodeNameW(empty, ZuXmlGetRootNode(empty), b, ref l)), "the new root");
                Check.Equal(0, ZuXmlLoadFromBufW(empty, "<b>", 3), "malformed text");
                Check.Equal(IntPtr.Zero, ZuXmlGetRootNode(empty), "a failed load leaves no document");

                IntPtr typed = ZuXmlCreateWriteDocumentW("ρίζα", null, "ρίζα.dtd");
                string typedText = ReadW((char[] b, ref int l) => ZuXmlWriteToStringW(typed, b, ref l));
                Check.True(typedText.Contains("<!DOCTYPE ρίζα SYSTEM \"ρίζα.dtd\">"), "document type: " + typedText);
                Check.Equal(1, ZuXmlReleaseDocument(typed), "release");

                IntPtr wide = ZuXmlCreateWriteDocumentW("ρίζα", "urn:example:w", null);
                Check.True(wide != IntPtr.Zero, "wide write document");
                Check.Equal(1, ZuXmlSetNodeTextContentW(wide, ZuXmlGetRootNode(wide), Texts.NonBmp), "set text");
                string written = ReadW((char[] b, ref int l) => ZuXmlWriteToStringW(wide, b, ref l));
                Check.True(written.Contains(Texts.NonBmp), "text outside the BMP is written");
                Check.Equal(IntPtr.Zero, ZuXmlCreateWriteDocumentW("not a name", null, null), "invalid root");

                IntPtr narrow = ZuXmlCreateWriteDocumentA(A("root"), A("urn:example:a"), null);
                Check.True(narrow != IntPtr.Zero, "narrow write document");
                string narrowText = ReadA((byte[] b, ref int l) => ZuXmlWriteToStringA(narrow, b, ref l));
                Check.True(narrowText.Contains("<root xmlns=\"urn:example:a\"/>"), "narrow string: " + narrowText);

                string pretty = scratch.File("pretty.xml"), plain = scratch.File("plain.xml");
                string prettyA = scratch.File("prettyA.xml"), plainA = scratch.File("plainA.xml");
                Check.Equal(1, ZuXmlAddNodeW(wide, IntPtr.Zero, "child", 1, "t", null) != IntPtr.Zero ? 1 : 0, "child");
                Check.Equal(1, ZuXmlWriteW(wide, pretty), "WriteW");
                Check.Equal(1, ZuXmlWriteNoPrettyW(wide, plain), "WriteNoPrettyW");
                Check.Equal(1, ZuXmlWriteA(narrow, A(prettyA)), "WriteA");
                Check.Equal(1, ZuXmlWriteNoPrettyA(narrow, A(plainA)), "WriteNoPrettyA");
                Check.True(File.ReadAllText(pretty).Length > File.ReadAllText(plain).Length, "indented is longer");
                Check.Equal(0, ZuXmlWriteW(wide, scratch.File("missing/dir.xml")), "unwritable path");

                Check.Equal(1, ZuXmlLoadFromFileW(empty, plain), "LoadFromFileW");
                Check.Equal(Texts.NonBmp + "t", ReadW((char[] b, ref int l) =>
                    ZuXmlGetNodeTextContentW(empty, ZuXmlGetRootNode(empty), b, ref l)), "the file's text");
                Check.Equal(1, ZuXmlLoadFromFileA(empty, A(prettyA)), "LoadFromFileA");
                Check.Equal("root", ReadA((byte[] b, ref int l) =>
                    ZuXmlGetNodeNameA(empty, ZuXmlGetRootNode(empty), b, ref l)), "the narrow file's root");
                Check.Equal(0, ZuXmlLoadFromFileW(empty, scratch.File("absent.xml")), "absent file");

                Check.Equal(1, ZuXmlReleaseDocument(empty), "release");
                Check.Equal(1, ZuXmlReleaseDocument(wide), "release");
                Check.Equal(1, ZuXmlReleaseSax2Parser(narrow), "one entry releases either kind");
            }
            ZuXmlCleanup();
        }

        [Test]
        private static void NodesAreReadAndWalked()
        {
            ZuXmlInit();
            string xml = "<p:a xmlns:p='urn:p'><b>one</b><!--c--><p:d>two</p:d></p:a>";
            IntPtr doc = ZuXmlCreateDocument();
            Check.Equal(1, ZuXmlLoadFromBufW(doc, xml, (uint)xml.Length), "load");
            IntPtr root = ZuXmlGetRootNode(doc);
            Check.Equal((ushort)1, ZuXmlGetNodeType(doc, root), "element type");
            Check.Equal((ushort)9, ZuXmlGetNodeType(doc, ZuXmlGetParentNode(doc, root)), "document above the root");
            Check.Equal((ushort)0, ZuXmlGetNodeType(doc, IntPtr.Zero), "NULL node");
            IntPtr b = ZuXmlGetFirstChild(doc, root), d = ZuXmlGetLastChild(doc, root);
            IntPtr comment = ZuXmlGetNextSibling(doc, b);
            Check.Equal(comment, ZuXmlGetPriviousSibling(doc, d), "siblings meet");
            Check.Equal((ushort)8, ZuXmlGetNodeType(doc, comment), "comment type");
            Check.Equal(IntPtr.Zero, ZuXmlGetPriviousSibling(doc, b), "no sibling before the first");
            Check.Equal(b, ZuXmlGetFirstChild(doc, IntPtr.Zero), "NULL reads as the root");
            Check.Equal(d, ZuXmlFindChildW(doc, root, "p:d"), "FindChildW by qualified name");
            Check.Equal(comment, ZuXmlFindChildA(doc, IntPtr.Zero, A("#comment")), "FindChildA");
            Check.Equal(IntPtr.Zero, ZuXmlFindChildW(doc, root, "d"), "not found by local name");

            Check.Equal("p:a", ReadW((char[] x, ref int l) => ZuXmlGetNodeNameW(doc, root, x, ref l)), "NameW");
            Check.Equal("#comment", ReadA((byte[] x, ref int l) => ZuXmlGetNodeNameA(doc, comment, x, ref l)), "NameA");
            Check.Equal("urn:p", ReadW((char[] x, ref int l) => ZuXmlGetNodeNamespaceW(doc, d, x, ref l)), "NamespaceW");
            Check.Equal("urn:p", ReadA((byte[] x, ref int l) => ZuXmlGetNodeNamespaceA(doc, d, x, ref l)), "NamespaceA");
            Check.Equal("onetwo", ReadW((char[] x, ref int l) => ZuXmlGetNodeTextContentW(doc, root, x, ref l)), "TextW");
            Check.Equal("two", ReadA((byte[] x, ref int l) => ZuXmlGetNodeTextContentA(doc, d, x, ref l)), "TextA");

            var local = new char[10];
            var prefix = new char[10];
            int localLength = 10, prefixLength = 10;
            Check.Equal(1, ZuXmlGetLocalNodeNameW(doc, d, local, ref localLength, prefix, ref prefixLength), "LocalW");
            Check.Equal("d", new string(local, 0, 1), "local name");
            Check.Equal("p", new string(prefix, 0, 1), "prefix");
            localLength = 0;
            Check.Equal(0, ZuXmlGetLocalNodeNameW(doc, d, null, ref localLength, prefix, ref prefixLength), "too small");
            Check.Equal(2, localLength, "local name length needed");
            var localA = new byte[10];
            var prefixA = new byte[10];
            localLength = prefixLength = 10;
            Check.Equal(1, ZuXmlGetLocalNodeNameA(doc, d, localA, ref localLength, prefixA, ref prefixLength), "LocalA");
            Check.Equal("d", FromA(localA), "narrow local name");
            Check.Equal("p", FromA(prefixA), "narrow prefix");
            ZuXmlReleaseDocument(doc);
            ZuXmlCleanup();
        }

        [Test]
        private static void NodesAreEditedAndCopied()
        {
            ZuXmlInit();
            IntPtr doc = ZuXmlCreateWriteDocumentW("root", null, null);
            IntPtr root = ZuXmlGetRootNode(doc);
            IntPtr wide = ZuXmlAddNodeW(doc, root, "w", 1, Texts.NonBmp, null);
            IntPtr narrow = ZuXmlAddNodeA(doc, IntPtr.Zero, A("n"), 1, A("narrow"), null);
            Check.True(wide != IntPtr.Zero && narrow != IntPtr.Zero, "elements added");
            Check.Equal(IntPtr.Zero, ZuXmlAddNodeW(doc, root, "t", 3, "x", null), "only elements are added");
            Check.True(ZuXmlAddCommentW(doc, root, Texts.NonBmp) != IntPtr.Zero, "AddCommentW");
            Check.True(ZuXmlAddCommentA(doc, IntPtr.Zero, A("narrow comment")) != IntPtr.Zero, "AddCommentA");
            Check.Equal(1, ZuXmlSetNodeTextContentA(doc, narrow, A("changed")), "SetTextA");
            Check.Equal(1, ZuXmlSetNodeTextContentW(doc, wide, Texts.Greek), "SetTextW");

            IntPtr other = ZuXmlCreateWriteDocumentA(A("other"), null, null);
            IntPtr copy = ZuXmlAddNodeExisting(other, IntPtr.Zero, wide, 1);
            Check.True(copy != IntPtr.Zero, "copied into another document");
            Check.Equal(Texts.Greek, ReadW((char[] x, ref int l) => ZuXmlGetNodeTextContentW(other, copy, x, ref l)), "deep copy");
            IntPtr shallow = ZuXmlAddNodeExisting(other, IntPtr.Zero, wide, 0);
            Check.Equal("", ReadWOrEmpty(other, shallow), "a shallow copy has no text");

            Check.Equal(1, ZuXmlRemoveNode(doc, narrow), "RemoveNode");
            Check.Equal(0, ZuXmlRemoveNode(doc, IntPtr.Zero), "NULL is not removed");
            string xml = ReadW((char[] x, ref int l) => ZuXmlWriteToStringW(doc, x, ref l));
            Check.True(xml.EndsWith("<root><w>" + Texts.Greek + "</w><!--" + Texts.NonBmp + "--><!--narrow comment--></root>"),
                       "edited document: " + xml);
            ZuXmlReleaseDocument(other);
            ZuXmlReleaseDocument(doc);
            ZuXmlCleanup();
        }

        private static string ReadWOrEmpty(IntPtr doc, IntPtr node)
        {
            var buffer = new char[4];
            int length = 4;
            Check.Equal(1, ZuXmlGetNodeTextContentW(doc, node, buffer, ref length), "text of a shallow copy");
            return new string(buffer, 0, Array.IndexOf(buffer, '\0'));
        }

        [Test]
        private static void AttributesAreReadAndChanged()
        {
            ZuXmlInit();
            IntPtr doc = ZuXmlCreateWriteDocumentW("root", null, null);
            IntPtr root = ZuXmlGetRootNode(doc);
            Check.Equal(0, ZuXmlGetNodeAttributeCount(doc, root), "no attributes yet");
            Check.Equal(-1, ZuXmlGetNodeAttributeCount(doc, IntPtr.Zero), "-1 for a NULL node");
            Check.Equal(1, ZuXmlAddNodeAttributeW(doc, root, "w", Texts.NonBmp), "AddAttributeW");
            Check.Equal(1, ZuXmlAddNodeAttributeA(doc, IntPtr.Zero, A("n"), A("narrow")), "AddAttributeA");
            Check.Equal(0, ZuXmlAddNodeAttributeW(doc, root, "not a name", "x"), "invalid attribute name");
            Check.Equal(2, ZuXmlGetNodeAttributeCount(doc, root), "two attributes");

            var names = new List<string>();
            for (int index = 0; index < 2; index++)
            {
                int i = index;
                string nameW = ReadW((char[] x, ref int l) => ZuXmlGetNodeAttributeNameW(doc, root, i, x, ref l));
                string nameA = ReadA((byte[] x, ref int l) => ZuXmlGetNodeAttributeNameA(doc, root, i, x, ref l));
                Check.Equal(nameW, nameA, "names agree");
                string valueW = ReadW((char[] x, ref int l) => ZuXmlGetNodeAttributeValueIndexW(doc, root, i, x, ref l));
                Check.Equal(nameW == "w" ? Texts.NonBmp : "narrow", valueW, "value by index");
                names.Add(nameW);
            }
            names.Sort();
            Check.Equal("n,w", string.Join(",", names), "both names");
            int n = names.IndexOf("n");
            Check.Equal("narrow", ReadA((byte[] x, ref int l) => ZuXmlGetNodeAttributeValueIndexA(doc, root, n, x, ref l)),
                        "narrow value by index");
            Check.Equal(Texts.NonBmp, ReadW((char[] x, ref int l) =>
                ZuXmlGetNodeAttributeValueNameW(doc, root, "w", x, ref l)), "value by name");
            Check.Equal("narrow", ReadA((byte[] x, ref int l) =>
                ZuXmlGetNodeAttributeValueNameA(doc, root, A("n"), x, ref l)), "narrow value by name");

            Check.Equal(1, ZuXmlSetNodeAttributeValueW(doc, root, "w", "changed"), "SetValueW");
            Check.Equal(1, ZuXmlSetNodeAttributeValueA(doc, root, A("n"), A("changed too")), "SetValueA");
            Check.Equal(0, ZuXmlSetNodeAttributeValueW(doc, root, "absent", "x"), "absent attribute is not added");
            Check.Equal("changed too", ReadW((char[] x, ref int l) =>
                ZuXmlGetNodeAttributeValueNameW(doc, root, "n", x, ref l)), "changed value");

            Check.Equal(1, ZuXmlRemoveAttributeNameW(doc, root, "w"), "RemoveNameW");
            Check.Equal(1, ZuXmlRemoveAttributeNameA(doc, root, A("absent")), "absent names are removed too");
            Check.Equal(0, ZuXmlRemoveAttributeIndex(doc, root, 5), "index out of range");
            Check.Equal(1, ZuXmlRemoveAttributeIndex(doc, root, 0), "RemoveIndex");
            Check.Equal(0, ZuXmlGetNodeAttributeCount(doc, root), "all gone");
            ZuXmlReleaseDocument(doc);
            ZuXmlCleanup();
        }
    }
}
