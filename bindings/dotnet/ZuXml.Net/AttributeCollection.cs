// SPDX-License-Identifier: Apache-2.0
using System;
using System.Collections;
using System.Collections.Generic;

namespace ZuXml
{
    /// <summary>
    /// The attributes of an element, by qualified name or by position in the
    /// element's attribute map. Read afresh at every access: it always shows
    /// the element as it is.
    /// </summary>
    public sealed class AttributeCollection : IEnumerable<KeyValuePair<string, string>>
    {
        private readonly Node element;

        internal AttributeCollection(Node element)
        {
            this.element = element;
        }

        /// <summary>The number of attributes; a ZuXmlException for a node that is not an element.</summary>
        public int Count
        {
            get
            {
                int count = element.Use(NativeMethods.ZuXmlGetNodeAttributeCount);
                if (count < 0)
                    throw new ZuXmlException("the node is not an element");
                return count;
            }
        }

        /// <summary>The value of the attribute with a qualified name; null when it is absent. Setting adds or replaces it.</summary>
        public string this[string name]
        {
            get
            {
                return element.ReadText((h, n) => (char[] b, ref int l) =>
                    NativeMethods.ZuXmlGetNodeAttributeValueNameW(h, n, name, b, ref l));
            }
            set
            {
                if (element.Use((h, n) => NativeMethods.ZuXmlAddNodeAttributeW(h, n, name, value)) != 1)
                    throw new ZuXmlException("cannot set attribute " + name);
            }
        }

        /// <summary>The qualified name of the attribute at an index.</summary>
        public string NameAt(int index)
        {
            return Required(element.ReadText((h, n) => (char[] b, ref int l) =>
                NativeMethods.ZuXmlGetNodeAttributeNameW(h, n, index, b, ref l)), index);
        }

        /// <summary>The value of the attribute at an index.</summary>
        public string ValueAt(int index)
        {
            return Required(element.ReadText((h, n) => (char[] b, ref int l) =>
                NativeMethods.ZuXmlGetNodeAttributeValueIndexW(h, n, index, b, ref l)), index);
        }

        private static string Required(string text, int index)
        {
            if (text == null)
                throw new ZuXmlException("no attribute at index " + index);
            return text;
        }

        public bool Contains(string name)
        {
            return this[name] != null;
        }

        /// <summary>Changes the value of an attribute that exists; false, adding nothing, when it is absent.</summary>
        public bool Change(string name, string value)
        {
            return element.Use((h, n) => NativeMethods.ZuXmlSetNodeAttributeValueW(h, n, name, value)) == 1;
        }

        /// <summary>Removes the attribute with a qualified name; false when it was absent.</summary>
        public bool Remove(string name)
        {
            if (!Contains(name))
                return false;
            if (element.Use((h, n) => NativeMethods.ZuXmlRemoveAttributeNameW(h, n, name)) != 1)
                throw new ZuXmlException("cannot remove attribute " + name);
            return true;
        }

        /// <summary>Removes the attribute at an index.</summary>
        public void RemoveAt(int index)
        {
            if (element.Use((h, n) => NativeMethods.ZuXmlRemoveAttributeIndex(h, n, index)) != 1)
                throw new ZuXmlException("no attribute at index " + index);
        }

        public IEnumerator<KeyValuePair<string, string>> GetEnumerator()
        {
            int count = Count;
            for (int index = 0; index < count; index++)
                yield return new KeyValuePair<string, string>(NameAt(index), ValueAt(index));
        }

        IEnumerator IEnumerable.GetEnumerator()
        {
            return GetEnumerator();
        }
    }
}
