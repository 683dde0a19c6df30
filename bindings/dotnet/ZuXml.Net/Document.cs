// SPDX-License-Identifier: Apache-2.0
using System;

namespace ZuXml
{
    /// <summary>
    /// A document handle: empty, created with a root element, or loaded from
    /// a file, a string or bytes. Dispose releases it and every node of it;
    /// a document nobody disposed is released by its finalizer.
    /// </summary>
    public sealed class Document : IDisposable
    {
        private readonly ZuXmlHandle handle;
        // Counts the trees the handle held: a node of an earlier one is refused.
        private int generation;

        /// <summary>A handle holding no document yet (see LoadFile, LoadXml, LoadBytes).</summary>
        public Document() : this(Create(NativeMethods.ZuXmlCreateDocument)) { }

        private Document(ZuXmlHandle handle)
        {
            this.handle = handle;
        }

        private static ZuXmlHandle Create(Func<IntPtr> make)
        {
            Library.EnsureInitialised();
            return new ZuXmlHandle(make(), "a document");
        }

        /// <summary>
        /// A new document whose only element is root (qualified, in namespaceUri
        /// when given), preceded by a document type when systemId is given.
        /// </summary>
        public static Document Create(string root, string namespaceUri = null, string systemId = null)
        {
            return new Document(Create(() => NativeMethods.ZuXmlCreateWriteDocumentW(root, namespaceUri, systemId)));
        }

        public static Document FromFile(string path)
        {
            return Loaded(document => document.LoadFile(path));
        }

        public static Document FromXml(string xml)
        {
            return Loaded(document => document.LoadXml(xml));
        }

        public static Document FromBytes(byte[] bytes)
        {
            return Loaded(document => document.LoadBytes(bytes));
        }

        private static Document Loaded(Action<Document> load)
        {
            var document = new Document();
            try
            {
                load(document);
                return document;
            }
            catch
            {
                document.Dispose();
                throw;
            }
        }

        /// <summary>The handle, for calls of NativeMethods alongside this class.</summary>
        public ZuXmlHandle Handle
        {
            get { return handle; }
        }

        internal int Generation
        {
            get { return generation; }
        }

        internal T Use<T>(Func<IntPtr, T> call)
        {
            return handle.Use(call);
        }

        /// <summary>Loads a file (or URI), replacing the tree the handle held.</summary>
        public void LoadFile(string path)
        {
            Replace(Use(h => NativeMethods.ZuXmlLoadFromFileW(h, path)), path);
        }

        /// <summary>Parses XML text, read as UTF-16 whatever its declaration names.</summary>
        public void LoadXml(string xml)
        {
            if (xml == null)
                throw new ArgumentNullException("xml");
            Replace(Use(h => NativeMethods.ZuXmlLoadFromBufW(h, xml, (uint)xml.Length)), "the text");
        }

        /// <summary>Parses XML bytes in the encoding they declare or show.</summary>
        public void LoadBytes(byte[] bytes)
        {
            if (bytes == null)
                throw new ArgumentNullException("bytes");
            Replace(Use(h => NativeMethods.ZuXmlLoadFromBufA(h, bytes, (uint)bytes.Length)), "the bytes");
        }

        private void Replace(int answer, string what)
        {
            generation++;
            if (answer != 1)
                throw new ZuXmlException("cannot load " + what);
        }

        /// <summary>Writes the document to a file, indented unless pretty is false.</summary>
        public void Save(string path, bool pretty = true)
        {
            int answer = Use(h => pretty ? NativeMethods.ZuXmlWriteW(h, path) : NativeMethods.ZuXmlWriteNoPrettyW(h, path));
            if (answer != 1)
                throw new ZuXmlException("cannot write " + path);
        }

        /// <summary>The document as XML text, never indented.</summary>
        public string ToXmlString()
        {
            string text = Use(h => WideText.Read((char[] buffer, ref int length) =>
                NativeMethods.ZuXmlWriteToStringW(h, buffer, ref length)));
            if (text == null)
                throw new ZuXmlException("the handle holds no document");
            return text;
        }

        /// <summary>The document element, or null when the handle holds no document.</summary>
        public Node Root
        {
            get { return Node.Wrap(this, Use(NativeMethods.ZuXmlGetRootNode)); }
        }

        public void Dispose()
        {
            generation++;
            handle.Dispose();
        }
    }
}
