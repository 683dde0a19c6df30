// SPDX-License-Identifier: Apache-2.0
// The 65 functions of ZuXml as P/Invoke declarations, each named and typed
// as include/zuxml.h declares it. "zuxml" is found as libzuxml.so on Linux
// (Mono adds the prefix and suffix) and as ZUXML.dll on Windows (file names
// are case-insensitive there).
//
// Types: handles are IntPtr; int32_t is int, uint32_t uint, the node type
// ushort, SAX2 positions ref ulong. Wide text goes in as string (UTF-16, as
// the library takes it) and comes out through a char[] with its length in
// characters as ref int; a null array passes NULL, which with a length of 0
// or less asks for the length needed. Narrow text is the bytes of the C
// runtime's locale, zero-terminated, in and out as byte[].
using System;
using System.Runtime.InteropServices;

namespace ZuXml
{
    /// <summary>The library's exported functions, one declaration per export.</summary>
    public static class NativeMethods
    {
        // Lifecycle
        [DllImport("zuxml", EntryPoint = "ZuXmlInit", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlInit();

        [DllImport("zuxml", EntryPoint = "ZuXmlSax2Init", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSax2Init();

        [DllImport("zuxml", EntryPoint = "ZuXmlCleanup", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlCleanup();

        [DllImport("zuxml", EntryPoint = "ZuXmlSax2Cleanup", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSax2Cleanup();

        // Documents
        [DllImport("zuxml", EntryPoint = "ZuXmlCreateDocument", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlCreateDocument();

        [DllImport("zuxml", EntryPoint = "ZuXmlCreateWriteDocumentW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlCreateWriteDocumentW(string szRoot, string szNamespace, string szSystemId);

        [DllImport("zuxml", EntryPoint = "ZuXmlCreateWriteDocumentA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlCreateWriteDocumentA(byte[] szRoot, byte[] szNamespace, byte[] szSystemId);

        [DllImport("zuxml", EntryPoint = "ZuXmlReleaseDocument", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlReleaseDocument(IntPtr hDocument);

        [DllImport("zuxml", EntryPoint = "ZuXmlLoadFromFileW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlLoadFromFileW(IntPtr hDocument, string szPath);

        [DllImport("zuxml", EntryPoint = "ZuXmlLoadFromFileA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlLoadFromFileA(IntPtr hDocument, byte[] szPath);

        [DllImport("zuxml", EntryPoint = "ZuXmlLoadFromBufA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlLoadFromBufA(IntPtr hDocument, byte[] pBytes, uint nLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlLoadFromBufW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlLoadFromBufW(IntPtr hDocument, string szText, uint nLength);

        // Writing
        [DllImport("zuxml", EntryPoint = "ZuXmlWriteW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlWriteW(IntPtr hDocument, string szPath);

        [DllImport("zuxml", EntryPoint = "ZuXmlWriteA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlWriteA(IntPtr hDocument, byte[] szPath);

        [DllImport("zuxml", EntryPoint = "ZuXmlWriteNoPrettyW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlWriteNoPrettyW(IntPtr hDocument, string szPath);

        [DllImport("zuxml", EntryPoint = "ZuXmlWriteNoPrettyA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlWriteNoPrettyA(IntPtr hDocument, byte[] szPath);

        [DllImport("zuxml", EntryPoint = "ZuXmlWriteToStringW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlWriteToStringW(IntPtr hDocument, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlWriteToStringA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlWriteToStringA(IntPtr hDocument, [In, Out] byte[] szBuffer, ref int pnLength);

        // Node reading
        [DllImport("zuxml", EntryPoint = "ZuXmlGetRootNode", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlGetRootNode(IntPtr hDocument);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetParentNode", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlGetParentNode(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetPriviousSibling", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlGetPriviousSibling(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNextSibling", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlGetNextSibling(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetFirstChild", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlGetFirstChild(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetLastChild", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlGetLastChild(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlFindChildW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlFindChildW(IntPtr hDocument, IntPtr hParent, string szName);

        [DllImport("zuxml", EntryPoint = "ZuXmlFindChildA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlFindChildA(IntPtr hDocument, IntPtr hParent, byte[] szName);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeType", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern ushort ZuXmlGetNodeType(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeNameW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeNameW(
            IntPtr hDocument, IntPtr hNode, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeNameA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeNameA(
            IntPtr hDocument, IntPtr hNode, [In, Out] byte[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetLocalNodeNameW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetLocalNodeNameW(
            IntPtr hDocument, IntPtr hNode, [In, Out] char[] szLocalName, ref int pnLocalNameLength, [In,
            Out] char[] szPrefix, ref int pnPrefixLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetLocalNodeNameA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetLocalNodeNameA(
            IntPtr hDocument, IntPtr hNode, [In, Out] byte[] szLocalName, ref int pnLocalNameLength, [In,
            Out] byte[] szPrefix, ref int pnPrefixLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeTextContentW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeTextContentW(
            IntPtr hDocument, IntPtr hNode, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeTextContentA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeTextContentA(
            IntPtr hDocument, IntPtr hNode, [In, Out] byte[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeNamespaceW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeNamespaceW(
            IntPtr hDocument, IntPtr hNode, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeNamespaceA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeNamespaceA(
            IntPtr hDocument, IntPtr hNode, [In, Out] byte[] szBuffer, ref int pnLength);

        // Node editing
        [DllImport("zuxml", EntryPoint = "ZuXmlAddNodeW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlAddNodeW(
            IntPtr hDocument, IntPtr hParent, string szName, ushort nType, string szText, string szNamespace);

        [DllImport("zuxml", EntryPoint = "ZuXmlAddNodeA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlAddNodeA(
            IntPtr hDocument, IntPtr hParent, byte[] szName, ushort nType, byte[] szText, byte[] szNamespace);

        [DllImport("zuxml", EntryPoint = "ZuXmlAddCommentW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlAddCommentW(IntPtr hDocument, IntPtr hParent, string szText);

        [DllImport("zuxml", EntryPoint = "ZuXmlAddCommentA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlAddCommentA(IntPtr hDocument, IntPtr hParent, byte[] szText);

        [DllImport("zuxml", EntryPoint = "ZuXmlAddNodeExisting", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlAddNodeExisting(IntPtr hDocument, IntPtr hParent, IntPtr hSource, int nDeep);

        [DllImport("zuxml", EntryPoint = "ZuXmlRemoveNode", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlRemoveNode(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlSetNodeTextContentW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSetNodeTextContentW(IntPtr hDocument, IntPtr hNode, string szText);

        [DllImport("zuxml", EntryPoint = "ZuXmlSetNodeTextContentA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSetNodeTextContentA(IntPtr hDocument, IntPtr hNode, byte[] szText);

        // Attributes
        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeCount", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeCount(IntPtr hDocument, IntPtr hNode);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeNameW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeNameW(
            IntPtr hDocument, IntPtr hNode, int nIndex, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeNameA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeNameA(
            IntPtr hDocument, IntPtr hNode, int nIndex, [In, Out] byte[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeValueIndexW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeValueIndexW(
            IntPtr hDocument, IntPtr hNode, int nIndex, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeValueIndexA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeValueIndexA(
            IntPtr hDocument, IntPtr hNode, int nIndex, [In, Out] byte[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeValueNameW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeValueNameW(
            IntPtr hDocument, IntPtr hNode, string szName, [In, Out] char[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetNodeAttributeValueNameA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetNodeAttributeValueNameA(
            IntPtr hDocument, IntPtr hNode, byte[] szName, [In, Out] byte[] szBuffer, ref int pnLength);

        [DllImport("zuxml", EntryPoint = "ZuXmlAddNodeAttributeW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlAddNodeAttributeW(
            IntPtr hDocument, IntPtr hNode, string szName, string szValue);

        [DllImport("zuxml", EntryPoint = "ZuXmlAddNodeAttributeA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlAddNodeAttributeA(
            IntPtr hDocument, IntPtr hNode, byte[] szName, byte[] szValue);

        [DllImport("zuxml", EntryPoint = "ZuXmlSetNodeAttributeValueW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSetNodeAttributeValueW(
            IntPtr hDocument, IntPtr hNode, string szName, string szValue);

        [DllImport("zuxml", EntryPoint = "ZuXmlSetNodeAttributeValueA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSetNodeAttributeValueA(
            IntPtr hDocument, IntPtr hNode, byte[] szName, byte[] szValue);

        [DllImport("zuxml", EntryPoint = "ZuXmlRemoveAttributeIndex", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlRemoveAttributeIndex(IntPtr hDocument, IntPtr hNode, int nIndex);

        [DllImport("zuxml", EntryPoint = "ZuXmlRemoveAttributeNameW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlRemoveAttributeNameW(IntPtr hDocument, IntPtr hNode, string szName);

        [DllImport("zuxml", EntryPoint = "ZuXmlRemoveAttributeNameA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlRemoveAttributeNameA(IntPtr hDocument, IntPtr hNode, byte[] szName);

        // SAX2 streaming
        [DllImport("zuxml", EntryPoint = "ZuXmlCreateSax2Parser", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern IntPtr ZuXmlCreateSax2Parser(IntPtr pContext);

        [DllImport("zuxml", EntryPoint = "ZuXmlReleaseSax2Parser", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlReleaseSax2Parser(IntPtr hParser);

        [DllImport("zuxml", EntryPoint = "ZuXmlSetSax2ParserCallbacksW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSetSax2ParserCallbacksW(
            IntPtr hParser, ZuXmlSax2StartDocumentCallback pStartDocument, ZuXmlSax2EndDocumentCallback pEndDocument,
            ZuXmlSax2StartElementCallbackW pStartElement, ZuXmlSax2AttributeCallbackW pAttribute,
            ZuXmlSax2AttributesDoneCallback pAttributesDone, ZuXmlSax2EndElementCallbackW pEndElement,
            ZuXmlSax2CommentCallbackW pComment, ZuXmlSax2DiagnosticCallbackW pDiagnostic);

        [DllImport("zuxml", EntryPoint = "ZuXmlSetSax2ParserCallbacksA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSetSax2ParserCallbacksA(
            IntPtr hParser, ZuXmlSax2StartDocumentCallback pStartDocument, ZuXmlSax2EndDocumentCallback pEndDocument,
            ZuXmlSax2StartElementCallbackA pStartElement, ZuXmlSax2AttributeCallbackA pAttribute,
            ZuXmlSax2AttributesDoneCallback pAttributesDone, ZuXmlSax2EndElementCallbackA pEndElement,
            ZuXmlSax2CommentCallbackA pComment, ZuXmlSax2DiagnosticCallbackA pDiagnostic);

        [DllImport("zuxml", EntryPoint = "ZuXmlSax2LoadFromFileW", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSax2LoadFromFileW(IntPtr hParser, string szFileName, int nMode);

        [DllImport("zuxml", EntryPoint = "ZuXmlSax2LoadFromFileA", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlSax2LoadFromFileA(IntPtr hParser, byte[] szFileName, int nMode);

        [DllImport("zuxml", EntryPoint = "ZuXmlSax2StopLoadFromFile", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern void ZuXmlSax2StopLoadFromFile(IntPtr hParser);

        [DllImport("zuxml", EntryPoint = "ZuXmlGetSax2CurrentLocation", ExactSpelling = true,
                   CallingConvention = CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
        public static extern int ZuXmlGetSax2CurrentLocation(IntPtr hParser, ref ulong pnLine, ref ulong pnColumn);
    }
}
