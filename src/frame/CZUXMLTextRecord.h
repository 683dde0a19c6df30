// One text in up to three forms: Xerces' own (XMLCh), narrow in Xerces'
// local code page, and 16-bit wide text. Each form is made only when it is
// asked for, at most once, and released by the allocator that made it.
//
// The streaming parser uses it where Xerces' own transcoder, not the C
// runtime's locale, turns text narrow or wide: the narrow file name of a
// SAX2 load and the text of narrow SAX2 events.
#pragma once

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

class CZUXMLTextRecord {
public:
    struct WideSlot {};

    // From nothing: every form is NULL.
    CZUXMLTextRecord() = default;
    // From Xerces (or wide) text: a Xerces copy in the parser form.
    explicit CZUXMLTextRecord(const XMLCh *text);
    // From narrow text: a Xerces copy in the narrow form.
    explicit CZUXMLTextRecord(const char *text);
    // From wide text held as such (C heap); its other forms are then made
    // through the C runtime's locale.
    CZUXMLTextRecord(WideSlot, const XMLCh *text);

    CZUXMLTextRecord(const CZUXMLTextRecord &) = delete;
    CZUXMLTextRecord &operator=(const CZUXMLTextRecord &) = delete;
    ~CZUXMLTextRecord();

    // Xerces' form; made from the narrow form by Xerces' transcoder.
    const XMLCh *ParserForm();
    // The narrow form; made from Xerces' form by Xerces' transcoder, or
    // from the wide form by the C runtime's locale conversion.
    const char *NarrowForm();

private:
    void FillNarrowFromWide();

    XMLCh *m_pParser = nullptr;
    char *m_pNarrow = nullptr;
    XMLCh *m_pWide = nullptr;
};

} // namespace zuxml
