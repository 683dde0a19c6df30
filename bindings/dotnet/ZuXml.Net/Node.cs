// SPDX-License-Identifier: Apache-2.0
using System;
using System.Collections.Generic;

namespace ZuXml
{
    /// <summary>W3C DOM node types as the library reports them.</summary>
    public enum NodeType : ushort
    {
        Element = 1,
        Attribute = 2,
        Text = 3,
        CDataSection = 4,
        ProcessingInstruction = 7,
        Comment = 8,
        Document = 9,
        DocumentType = 10,
    }

    /// <summary>
    /// A node of a document's tree. It is valid while it is in the tree: a
    /// removed node, and every node of a document that loaded another tree
    /// or was disposed, is refused with a ZuXmlException.
    /// </summary>
    public sealed class Node : IEquatable<Node>
    {
        private readonly Document document;
        private readonly IntPtr node;
        private int generation;

        private Node(Document document, IntPtr node)
        {
            this.document = document;
            this.node = node;
            generation = document.Generation;
        }

        internal static Node Wrap(Document document, IntPtr node)
        {
            return node == IntPtr.Zero ? null : new Node(document, node);
        }

        public Document Document
        {
            get { return document; }
        }

        /// <summary>The node handle, for calls of NativeMethods alongside this class.</summary>
        public IntPtr Handle
        {
            get { return node; }
        }

        internal T Use<T>(Func<IntPtr, IntPtr, T> call)
        {
            if (generation != document.Generation)
                throw new ZuXmlException("the node is no longer valid: removed, or its document replaced or disposed");
            return document.Use(h => call(h, node));
        }

        private Node Navigate(Func<IntPtr, IntPtr, IntPtr> step)
        {
            return Wrap(document, Use(step));
        }

        private Node Made(IntPtr added, string what)
        {
            if (added == IntPtr.Zero)
                throw new ZuXmlException("cannot add " + what);
            return new Node(document, added);
        }

        /// <summary>Text of a wide getter of this node, or null when it fails.</summary>
        internal string ReadText(Func<IntPtr, IntPtr, WideText.Getter> getter)
        {
            return Use((h, n) => WideText.Read(getter(h, n)));
        }

        private string RequiredText(Func<IntPtr, IntPtr, WideText.Getter> getter, string what)
        {
            string text = ReadText(getter);
            if (text == null)
                throw new ZuXmlException("cannot read the " + what);
            return text;
        }

        public NodeType NodeType
        {
            get { return (NodeType)Use(NativeMethods.ZuXmlGetNodeType); }
        }

        /// <summary>The DOM node name: the qualified name of an element, "#text", "#comment"...</summary>
        public string Name
        {
            get { return RequiredText((h, n) => (char[] b, ref int l) => NativeMethods.ZuXmlGetNodeNameW(h, n, b, ref l), "name"); }
        }

        /// <summary>The local name; empty for nodes without a namespace-aware name.</summary>
        public string LocalName
        {
            get { return LocalNameAndPrefix()[0]; }
        }

        /// <summary>The namespace prefix; empty when there is none.</summary>
        public string Prefix
        {
            get { return LocalNameAndPrefix()[1]; }
        }

        private string[] LocalNameAndPrefix()
        {
            string[] pair = Use((h, n) => WideText.ReadPair(
                (char[] local, ref int localLength, char[] prefix, ref int prefixLength) =>
                    NativeMethods.ZuXmlGetLocalNodeNameW(h, n, local, ref localLength, prefix, ref prefixLength)));
            if (pair == null)
                throw new ZuXmlException("cannot read the local name");
            return pair;
        }

        /// <summary>The namespace URI, or null when the node has none.</summary>
        public string NamespaceUri
        {
            get { return ReadText((h, n) => (char[] b, ref int l) => NativeMethods.ZuXmlGetNodeNamespaceW(h, n, b, ref l)); }
        }

        /// <summary>The text of the node and its descendants; setting it replaces the node's content.</summary>
        public string Text
        {
            get
            {
                return RequiredText(
                    (h, n) => (char[] b, ref int l) => NativeMethods.ZuXmlGetNodeTextContentW(h, n, b, ref l), "text");
            }
            set
            {
                if (Use((h, n) => NativeMethods.ZuXmlSetNodeTextContentW(h, n, value)) != 1)
                    throw new ZuXmlException("cannot set the text");
            }
        }

        /// <summary>The parent; the document node above the root element.</summary>
        public Node Parent
        {
            get { return Navigate(NativeMethods.ZuXmlGetParentNode); }
        }

        public Node PreviousSibling
        {
            get { return Navigate(NativeMethods.ZuXmlGetPriviousSibling); }
        }

        public Node NextSibling
        {
            get { return Navigate(NativeMethods.ZuXmlGetNextSibling); }
        }

        public Node FirstChild
        {
            get { return Navigate(NativeMethods.ZuXmlGetFirstChild); }
        }

        public Node LastChild
        {
            get { return Navigate(NativeMethods.ZuXmlGetLastChild); }
        }

        /// <summary>The direct children in document order.</summary>
        public IEnumerable<Node> Children
        {
            get
            {
                for (Node child = FirstChild; child != null;)
                {
                    Node following = child.NextSibling;
                    yield return child;
                    child = following;
                }
            }
        }

        /// <summary>The first direct child whose node name is exactly name, or null.</summary>
        public Node FindChild(string name)
        {
            return Navigate((h, n) => NativeMethods.ZuXmlFindChildW(h, n, name));
        }

        /// <summary>Appends a new element (name may carry a prefix with a namespace).</summary>
        public Node AppendElement(string name, string text = null, string namespaceUri = null)
        {
            const ushort element = (ushort)NodeType.Element;
            return Made(Use((h, n) => NativeMethods.ZuXmlAddNodeW(h, n, name, element, text, namespaceUri)),
                        "element " + name);
        }

        public Node AppendComment(string text)
        {
            return Made(Use((h, n) => NativeMethods.ZuXmlAddCommentW(h, n, text)), "a comment");
        }

        /// <summary>Appends a copy of source, a node of this or another document.</summary>
        public Node AppendCopy(Node source, bool deep = true)
        {
            if (source == null)
                throw new ArgumentNullException("source");
            IntPtr from = source.Use((h, n) => n);
            return Made(Use((h, n) => NativeMethods.ZuXmlAddNodeExisting(h, n, from, deep ? 1 : 0)), "a copy");
        }

        /// <summary>Removes the node and its subtree; the node is invalid afterwards.</summary>
        public void Remove()
        {
            if (Use(NativeMethods.ZuXmlRemoveNode) != 1)
                throw new ZuXmlException("cannot remove the node");
            generation = -1;
        }

        /// <summary>The attributes of an element.</summary>
        public AttributeCollection Attributes
        {
            get { return new AttributeCollection(this); }
        }

        public bool Equals(Node other)
        {
            return other != null && other.node == node;
        }

        public override bool Equals(object obj)
        {
            return Equals(obj as Node);
        }

        public override int GetHashCode()
        {
            return node.GetHashCode();
        }

        public override string ToString()
        {
            return Name;
        }
    }
}
