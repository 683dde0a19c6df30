/* SPDX-License-Identifier: Apache-2.0 */
// The narrow file name of a SAX2 load (ZuXmlSax2LoadFromFileA) in Xerces'
// own text: a Xerces copy of the narrow name, turned into XMLCh by Xerces'
// local code page transcoder when first asked for. Both copies are made and
// released with Xerces' default memory manager.
#pragma once

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

class CZUXMLTextRecord {
public:
    // A Xerces copy of text; NULL stays NULL.
    explicit CZUXMLTextRecord(const char *text);

    CZUXMLTextRecord(const CZUXMLTextRecord &) = delete;
    CZUXMLTextRecord &operator=(const CZUXMLTextRecord &) = delete;
    ~CZUXMLTextRecord();

    // The text in Xerces' form, made once; NULL for NULL text.
    const XMLCh *ParserForm();

private:
    char *m_pNarrow = nullptr;
    XMLCh *m_pParser = nullptr;
};

} // namespace zuxml
