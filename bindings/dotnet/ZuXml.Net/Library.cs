// SPDX-License-Identifier: Apache-2.0
using System;

namespace ZuXml
{
    /// <summary>
    /// Starts Xerces once per process, before the first handle is made.
    /// It is not terminated by the binding: a finalizer may still release a
    /// handle at process exit, and releasing needs Xerces running.
    /// </summary>
    internal static class Library
    {
        private static readonly object Gate = new object();
        private static bool initialised;

        internal static void EnsureInitialised()
        {
            lock (Gate)
            {
                if (initialised)
                    return;
                if (NativeMethods.ZuXmlInit() != 1)
                    throw new ZuXmlException("Xerces could not be initialised");
                initialised = true;
            }
        }
    }
}
