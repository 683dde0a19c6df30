// SPDX-License-Identifier: Apache-2.0
// The SAX2 callback types of include/zuxml.h. Each receives the parser
// handle and the context given to ZuXmlCreateSax2Parser first. Wide text
// arrives as string, copied before the callback runs (the library's strings
// live only until it returns); narrow text arrives as a pointer to the
// zero-terminated bytes of the C runtime's locale, valid until it returns.
//
// The library keeps only the function pointers: a caller keeps each delegate
// it installs reachable for as long as the parser may call it.
using System;
using System.Runtime.InteropServices;

namespace ZuXml
{
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2StartDocumentCallback(IntPtr hParser, IntPtr pContext);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2EndDocumentCallback(IntPtr hParser, IntPtr pContext);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
    public delegate void ZuXmlSax2StartElementCallbackW(
        IntPtr hParser, IntPtr pContext, int nDepth, int nAttributes, [MarshalAs(UnmanagedType.LPWStr)] string szUri,
        [MarshalAs(UnmanagedType.LPWStr)] string szLocalName, [MarshalAs(UnmanagedType.LPWStr)] string szQName);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2StartElementCallbackA(
        IntPtr hParser, IntPtr pContext, int nDepth, int nAttributes, IntPtr szUri, IntPtr szLocalName,
        IntPtr szQName);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
    public delegate void ZuXmlSax2AttributeCallbackW(
        IntPtr hParser, IntPtr pContext, int nDepth, int nIndex, [MarshalAs(UnmanagedType.LPWStr)] string szUri,
        [MarshalAs(UnmanagedType.LPWStr)] string szLocalName, [MarshalAs(UnmanagedType.LPWStr)] string szQName,
        [MarshalAs(UnmanagedType.LPWStr)] string szType, [MarshalAs(UnmanagedType.LPWStr)] string szValue);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2AttributeCallbackA(
        IntPtr hParser, IntPtr pContext, int nDepth, int nIndex, IntPtr szUri, IntPtr szLocalName, IntPtr szQName,
        IntPtr szType, IntPtr szValue);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2AttributesDoneCallback(IntPtr hParser, IntPtr pContext, int nDepth);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
    public delegate void ZuXmlSax2EndElementCallbackW(
        IntPtr hParser, IntPtr pContext, int nDepth, [MarshalAs(UnmanagedType.LPWStr)] string szUri,
        [MarshalAs(UnmanagedType.LPWStr)] string szLocalName, [MarshalAs(UnmanagedType.LPWStr)] string szQName,
        [MarshalAs(UnmanagedType.LPWStr)] string szText);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2EndElementCallbackA(
        IntPtr hParser, IntPtr pContext, int nDepth, IntPtr szUri, IntPtr szLocalName, IntPtr szQName, IntPtr szText);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
    public delegate void ZuXmlSax2CommentCallbackW(
        IntPtr hParser, IntPtr pContext, int nDepth, [MarshalAs(UnmanagedType.LPWStr)] string szText);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2CommentCallbackA(IntPtr hParser, IntPtr pContext, int nDepth, IntPtr szText);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl, CharSet = CharSet.Unicode)]
    public delegate void ZuXmlSax2DiagnosticCallbackW(
        IntPtr hParser, IntPtr pContext, int nCode, [MarshalAs(UnmanagedType.LPWStr)] string szMessage);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    public delegate void ZuXmlSax2DiagnosticCallbackA(IntPtr hParser, IntPtr pContext, int nCode, IntPtr szMessage);
}
