// SPDX-License-Identifier: Apache-2.0
using System;
using System.Runtime.ExceptionServices;

namespace ZuXml
{
    public delegate void StartElementHandler(int depth, int attributeCount, string uri, string localName,
                                             string qualifiedName);
    public delegate void AttributeHandler(int depth, int index, string uri, string localName, string qualifiedName,
                                          string type, string value);
    public delegate void AttributesDoneHandler(int depth);
    public delegate void EndElementHandler(int depth, string uri, string localName, string qualifiedName,
                                           string text);
    public delegate void CommentHandler(int depth, string text);
    public delegate void DiagnosticHandler(int code, string message);

    /// <summary>
    /// A streaming parser raising events for the contents of a file. Handlers
    /// run on the loading thread, inside Load. An exception thrown by a
    /// handler stops the load and is thrown again by Load. Dispose releases
    /// the parser; a parser nobody disposed is released by its finalizer.
    /// </summary>
    public sealed class Sax2Parser : IDisposable
    {
        public const int Error = 20;
        public const int FatalError = 21;
        public const int Warning = 22;

        private readonly ZuXmlHandle handle;
        private ExceptionDispatchInfo failure;

        // The library calls these through the pointers it was given: held in
        // fields, they live as long as the parser, which outlives every load.
        private readonly ZuXmlSax2StartDocumentCallback startDocument;
        private readonly ZuXmlSax2EndDocumentCallback endDocument;
        private readonly ZuXmlSax2StartElementCallbackW startElement;
        private readonly ZuXmlSax2AttributeCallbackW attribute;
        private readonly ZuXmlSax2AttributesDoneCallback attributesDone;
        private readonly ZuXmlSax2EndElementCallbackW endElement;
        private readonly ZuXmlSax2CommentCallbackW comment;
        private readonly ZuXmlSax2DiagnosticCallbackW diagnostic;
        private readonly ZuXmlSax2AttributeCallbackA narrowAttribute;

        public event Action StartDocument;
        public event Action EndDocument;
        public event StartElementHandler StartElement;
        public event AttributeHandler Attribute;
        public event AttributesDoneHandler AttributesDone;
        public event EndElementHandler EndElement;
        public event CommentHandler Comment;
        public event DiagnosticHandler Diagnostic;

        public Sax2Parser()
        {
            Library.EnsureInitialised();
            handle = new ZuXmlHandle(NativeMethods.ZuXmlCreateSax2Parser(IntPtr.Zero), "a parser");
            startDocument = (p, c) => Raise(() => StartDocument?.Invoke());
            endDocument = (p, c) => Raise(() => EndDocument?.Invoke());
            startElement = (p, c, depth, count, uri, local, qname) =>
                Raise(() => StartElement?.Invoke(depth, count, uri, local, qname));
            attribute = (p, c, depth, index, uri, local, qname, type, value) =>
                Raise(() => Attribute?.Invoke(depth, index, uri, local, qname, type, value));
            attributesDone = (p, c, depth) => Raise(() => AttributesDone?.Invoke(depth));
            endElement = (p, c, depth, uri, local, qname, text) =>
                Raise(() => EndElement?.Invoke(depth, uri, local, qname, text));
            comment = (p, c, depth, text) => Raise(() => Comment?.Invoke(depth, text));
            diagnostic = (p, c, code, message) => Raise(() => Diagnostic?.Invoke(code, message));
            narrowAttribute = (p, c, depth, index, uri, local, qname, type, value) => { };
        }

        // No exception may cross the native frames of the load: the first one
        // is kept, the load asked to stop, and later events are dropped.
        private void Raise(Action fire)
        {
            if (failure != null)
                return;
            try
            {
                fire();
            }
            catch (Exception exception)
            {
                failure = ExceptionDispatchInfo.Capture(exception);
                Stop();
            }
        }

        /// <summary>
        /// Installs the entries of the events that have handlers now; the
        /// library reports comments and gathers element text only while an
        /// entry for them is set.
        /// </summary>
        private void Install(IntPtr parser)
        {
            bool attributes = Attribute != null || AttributesDone != null;
            NativeMethods.ZuXmlSetSax2ParserCallbacksW(parser,
                StartDocument != null ? startDocument : null,
                EndDocument != null ? endDocument : null,
                // Attribute events come only with a start-element entry.
                StartElement != null || attributes ? startElement : null,
                Attribute != null ? attribute : null,
                AttributesDone != null ? attributesDone : null,
                EndElement != null ? endElement : null,
                Comment != null ? comment : null,
                Diagnostic != null ? diagnostic : null);
            // AttributesDone is called when the narrow attribute entry is set;
            // that entry itself is not called while the wide start-element
            // entry serves.
            NativeMethods.ZuXmlSetSax2ParserCallbacksA(parser, null, null, null,
                AttributesDone != null ? narrowAttribute : null, null, null, null, null);
        }

        /// <summary>
        /// Streams a file through the event handlers. Progressive loads run
        /// step by step so that Stop can end them early; a one-shot load
        /// cannot be stopped. A ZuXmlException reports a load the library
        /// answered with failure (it prints the parser's message on standard
        /// output).
        /// </summary>
        public void Load(string path, bool progressive = true)
        {
            if (path == null)
                throw new ArgumentNullException("path");
            failure = null;
            int answer = handle.Use(parser =>
            {
                Install(parser);
                return NativeMethods.ZuXmlSax2LoadFromFileW(parser, path, progressive ? 1 : 0);
            });
            ExceptionDispatchInfo thrown = failure;
            failure = null;
            if (thrown != null)
                thrown.Throw();
            if (answer == -1)
                throw new ZuXmlException("parse error in " + path);
            if (answer != 1)
                throw new ZuXmlException("cannot parse " + path);
        }

        /// <summary>Asks a running progressive load to stop before its next step; any thread may call it.</summary>
        public void Stop()
        {
            handle.Use(parser =>
            {
                NativeMethods.ZuXmlSax2StopLoadFromFile(parser);
                return 0;
            });
        }

        /// <summary>The line and column the load has reached; false when no load runs.</summary>
        public bool TryGetLocation(out ulong line, out ulong column)
        {
            ulong foundLine = 0, foundColumn = 0;
            bool found = handle.Use(parser =>
                NativeMethods.ZuXmlGetSax2CurrentLocation(parser, ref foundLine, ref foundColumn) == 1);
            line = foundLine;
            column = foundColumn;
            return found;
        }

        /// <summary>The handle, for calls of NativeMethods alongside this class.</summary>
        public ZuXmlHandle Handle
        {
            get { return handle; }
        }

        public void Dispose()
        {
            handle.Dispose();
        }
    }
}
