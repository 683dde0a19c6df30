// SPDX-License-Identifier: Apache-2.0
using System;

namespace ZuXml
{
    /// <summary>An operation of the library answered failure.</summary>
    [Serializable]
    public class ZuXmlException : Exception
    {
        public ZuXmlException(string message) : base(message) { }
        public ZuXmlException(string message, Exception inner) : base(message, inner) { }
        protected ZuXmlException(System.Runtime.Serialization.SerializationInfo info,
                                 System.Runtime.Serialization.StreamingContext context) : base(info, context) { }
    }
}
