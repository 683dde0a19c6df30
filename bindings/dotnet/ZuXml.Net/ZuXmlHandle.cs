// SPDX-License-Identifier: Apache-2.0
using System;
using System.Runtime.InteropServices;

namespace ZuXml
{
    /// <summary>
    /// A document or parser handle owned by managed code: released once, by
    /// Dispose or, for a handle nobody disposed, by its finalizer. Documents
    /// and parsers share it because the library releases both kinds through
    /// one entry.
    /// </summary>
    public sealed class ZuXmlHandle : SafeHandle
    {
        internal ZuXmlHandle(IntPtr handle, string what) : base(IntPtr.Zero, true)
        {
            if (handle == IntPtr.Zero)
                throw new ZuXmlException("cannot create " + what);
            SetHandle(handle);
        }

        public override bool IsInvalid
        {
            get { return handle == IntPtr.Zero; }
        }

        protected override bool ReleaseHandle()
        {
            return NativeMethods.ZuXmlReleaseDocument(handle) == 1;
        }

        /// <summary>
        /// Runs a call with the raw handle while keeping it from being
        /// released by another thread until the call returns.
        /// </summary>
        internal T Use<T>(Func<IntPtr, T> call)
        {
            bool added = false;
            try
            {
                DangerousAddRef(ref added);
                return call(handle);
            }
            finally
            {
                if (added)
                    DangerousRelease();
            }
        }
    }
}
