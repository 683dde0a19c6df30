// SPDX-License-Identifier: Apache-2.0
using System;

namespace ZuXml
{
    /// <summary>
    /// The caller-buffer protocol run for the caller: ask with no buffer,
    /// which answers the length needed (text plus terminator), then fill a
    /// buffer of that length. A failed operation leaves the length alone.
    /// </summary>
    internal static class WideText
    {
        internal delegate int Getter(char[] buffer, ref int length);
        internal delegate int PairGetter(char[] first, ref int firstLength, char[] second, ref int secondLength);

        /// <summary>The text, or null when the operation itself failed.</summary>
        internal static string Read(Getter getter)
        {
            int capacity = 0;
            while (true)
            {
                char[] buffer = capacity > 0 ? new char[capacity] : null;
                int length = capacity;
                if (getter(buffer, ref length) == 1)
                    return Terminated(buffer);
                if (length <= capacity)
                    return null;
                capacity = length;
            }
        }

        /// <summary>Two texts of one call, each under the protocol on its own; null on failure.</summary>
        internal static string[] ReadPair(PairGetter getter)
        {
            int firstCapacity = 0, secondCapacity = 0;
            while (true)
            {
                char[] first = firstCapacity > 0 ? new char[firstCapacity] : null;
                char[] second = secondCapacity > 0 ? new char[secondCapacity] : null;
                int firstLength = firstCapacity, secondLength = secondCapacity;
                if (getter(first, ref firstLength, second, ref secondLength) == 1)
                    return new[] { Terminated(first), Terminated(second) };
                if (firstLength <= firstCapacity && secondLength <= secondCapacity)
                    return null;
                firstCapacity = Math.Max(firstCapacity, firstLength);
                secondCapacity = Math.Max(secondCapacity, secondLength);
            }
        }

        private static string Terminated(char[] buffer)
        {
            int end = Array.IndexOf(buffer, '\0');
            return new string(buffer, 0, end < 0 ? buffer.Length : end);
        }
    }
}
