// SPDX-License-Identifier: Apache-2.0
// Document, Node and AttributeCollection.
using System;
using System.Collections.Generic;
using System.Linq;
using System.Runtime.CompilerServices;
using System.Runtime.InteropServices;
using System.Threading;

namespace ZuXml.Tests
{
    internal static class DocumentTests
    {
        [Test]
        private static void TextOutsideTheBmpSurvivesAFileRoundTrip()
        {
            using (var scratch = new Scratch())
            {
                string path = scratch.File("round.xml");
                using (Document doc = Document.Create("root", "urn:example:root"))
                {
                    Node item = doc.Root.AppendElement("p:item", Texts.NonBmp, "urn:example:p");
                    item.Attributes["value"] = Texts.NonBmp;
                    doc.Root.AppendComment(Texts.Greek);
                    doc.Save(path);
                }
                using (Document again = Document.FromFile(path))
                {
                    Node item = again.Root.FindChild("p:item");
                    Check.Equal(Texts.NonBmp, item.Text, "text");
                    Check.Equal(Texts.NonBmp, item.Attributes["value"], "attribute");
                    Check.Equal("item", item.LocalName, "local name");
                    Check.Equal("p", item.Prefix, "prefix");
                    Check.Equal("urn:example:p", item.NamespaceUri, "namespace");
                    Check.Equal("urn:example:root", again.Root.NamespaceUri, "root namespace");
                    Check.Equal(Texts.Greek, again.Root.FindChild("#comment").Text, "comment");
                    Check.Equal(NodeType.Comment, again.Root.FindChild("#comment").NodeType, "comment type");
                }
            }
        }

        [Test]
        private static void LongTextIsFetchedWhole()
        {
            string text = string.Concat(Enumerable.Repeat(Texts.NonBmp, 2000));
            using (Document doc = Document.Create("root"))
            {
                doc.Root.Text = text;
                Check.Equal(text, doc.Root.Text, "text of " + text.Length + " units");
                Check.True(doc.ToXmlString().Contains(text), "and in the document");
            }
        }

        [Test]
        private static void TreeIsWalkedAndEdited()
        {
            using (Document doc = Document.FromXml("<a x='1' y='2'><b>one</b><!--c--><d/></a>"))
            {
                Node root = doc.Root;
                Check.Equal("a", root.Name, "root");
                Check.Equal("x=1,y=2", string.Join(",", root.Attributes.Select(a => a.Key + "=" + a.Value)), "attributes");
                Check.Equal(2, root.Attributes.Count, "count");
                Check.Equal("b,#comment,d", string.Join(",", root.Children.Select(c => c.Name)), "children");
                Check.Equal(root.FirstChild, root.FirstChild.NextSibling.PreviousSibling, "siblings");
                Check.Equal(root, root.LastChild.Parent, "parent");
                Check.Equal(NodeType.Document, root.Parent.NodeType, "document node");
                Check.True(root.Attributes.Remove("x"), "removed x");
                Check.True(!root.Attributes.Remove("x"), "x is gone");
                Check.True(root.Attributes.Change("y", "3"), "changed y");
                Check.True(!root.Attributes.Change("z", "3"), "z is not added by Change");
                Check.Equal(null, root.Attributes["z"], "absent attribute");
                root.FindChild("d").Remove();
                root.FindChild("b").Text = "two";
                string xml = doc.ToXmlString();
                Check.True(xml.EndsWith("<a y=\"3\"><b>two</b><!--c--></a>"), "edited: " + xml);
                root.Attributes.RemoveAt(0);
                Check.Equal(0, root.Attributes.Count, "no attribute left");
            }
        }

        [Test]
        private static void NodesAreCopiedBetweenDocuments()
        {
            using (Document source = Document.FromBytes(System.Text.Encoding.UTF8.GetBytes("<src><item k='v'>text</item></src>")))
            using (Document target = Document.Create("dst"))
            {
                Node copy = target.Root.AppendCopy(source.Root.FindChild("item"));
                Check.Equal("text", copy.Text, "copied text");
                Check.Equal("v", copy.Attributes["k"], "copied attribute");
                Check.True(source.Root.FindChild("item") != null, "the source keeps its node");
            }
        }

        [Test]
        private static void FailuresAreZuXmlExceptions()
        {
            using (var doc = new Document())
            {
                Check.Equal(null, doc.Root, "an empty handle has no root");
                Check.Throws<ZuXmlException>(() => doc.ToXmlString(), "nothing to write");
                Check.Throws<ZuXmlException>(() => doc.LoadXml("<unclosed>"), "malformed");
                Check.Throws<ZuXmlException>(() => doc.LoadFile("/nonexistent/missing.xml"), "missing file");
                Check.Throws<ZuXmlException>(() => doc.Save("/nonexistent/out.xml"), "unwritable");
            }
            Check.Throws<ZuXmlException>(() => Document.Create("not a name"), "invalid root name");
            using (Document doc = Document.Create("root"))
            {
                Check.Throws<ZuXmlException>(() => doc.Root.AppendElement("not a name"), "invalid element name");
                Check.Throws<ZuXmlException>(() => doc.Root.Attributes["not a name"] = "x", "invalid attribute name");
                Check.Throws<ZuXmlException>(() => doc.Root.Attributes.ValueAt(3), "no such index");
            }
        }

        [Test]
        private static void NodesOfAReplacedOrDisposedDocumentAreRefused()
        {
            Document doc = Document.FromXml("<one><two/></one>");
            Node old = doc.Root;
            Node child = old.FirstChild;
            child.Remove();
            Check.Throws<ZuXmlException>(() => child.Name.ToString(), "a removed node");
            doc.LoadXml("<three/>");
            Check.Equal("three", doc.Root.Name, "the new tree");
            Check.Throws<ZuXmlException>(() => old.Name.ToString(), "a node of the replaced tree");
            Node root = doc.Root;
            doc.Dispose();
            Check.Throws<ZuXmlException>(() => root.Name.ToString(), "a node of a disposed document");
        }

        [Test]
        private static void DisposeTwiceReleasesOnce()
        {
            var doc = Document.Create("root");
            doc.Dispose();
            doc.Dispose();
            Check.True(doc.Handle.IsClosed, "the handle is closed");
            Check.Throws<ObjectDisposedException>(() => doc.ToXmlString(), "a disposed document");
            var parser = new Sax2Parser();
            parser.Dispose();
            parser.Dispose();
            Check.Throws<ObjectDisposedException>(() => parser.Load("any.xml"), "a disposed parser");
        }

        [StructLayout(LayoutKind.Sequential)]
        private struct MallocInfo
        {
            public UIntPtr arena, ordblks, smblks, hblks, hblkhd, usmblks, fsmblks, uordblks, fordblks, keepcost;
        }

        [DllImport("libc.so.6", EntryPoint = "mallinfo2")]
        private static extern MallocInfo mallinfo2();

        // Bytes the C heap has handed out, small chunks and mapped blocks both.
        private static long HeapInUse()
        {
            MallocInfo info = mallinfo2();
            return (long)info.uordblks.ToUInt64() + (long)info.hblkhd.ToUInt64();
        }

        private const int Abandoned = 16;
        private const int TextUnits = 1 << 20;

        // On a thread of its own, so that no stack slot keeps a document reachable.
        [MethodImpl(MethodImplOptions.NoInlining)]
        private static void AbandonDocuments()
        {
            string text = new string('x', TextUnits);
            var thread = new Thread(() =>
            {
                for (int index = 0; index < Abandoned; index++)
                    Document.Create("root").Root.Text = text;
            });
            thread.Start();
            thread.Join();
        }

        private static void CollectFully()
        {
            for (int round = 0; round < 3; round++)
            {
                GC.Collect();
                GC.WaitForPendingFinalizers();
            }
        }

        [Test]
        private static void AbandonedDocumentsAreReleasedByTheFinalizer()
        {
            CollectFully();
            long before = HeapInUse();
            AbandonDocuments();
            long held = HeapInUse() - before;
            // Each document holds its text as UTF-16 at least once.
            Check.True(held >= (long)Abandoned * TextUnits * 2, "the documents hold their text: " + held);
            CollectFully();
            long kept = HeapInUse() - before;
            Check.True(kept < held / 4, string.Format("the finalizer released them: {0} of {1} bytes kept", kept, held));
        }
    }
}
