// The caller's eight SAX2 callbacks, in the order the setters take them.
//
// There is one table of wide callbacks and one of narrow callbacks; for
// each event the handler calls the wide entry when it is set, else the
// narrow one. A NULL entry means no interest in that event.
#pragma once

#include "zuxml.h"

namespace zuxml {

struct Sax2CallbackTableW {
    ZuXmlSax2StartDocumentCallback pStartDocument = nullptr;
    ZuXmlSax2EndDocumentCallback pEndDocument = nullptr;
    ZuXmlSax2StartElementCallbackW pStartElement = nullptr;
    ZuXmlSax2AttributeCallbackW pAttribute = nullptr;
    ZuXmlSax2AttributesDoneCallback pAttributesDone = nullptr;
    ZuXmlSax2EndElementCallbackW pEndElement = nullptr;
    ZuXmlSax2CommentCallbackW pComment = nullptr;
    ZuXmlSax2DiagnosticCallbackW pDiagnostic = nullptr;
};

struct Sax2CallbackTableA {
    ZuXmlSax2StartDocumentCallback pStartDocument = nullptr;
    ZuXmlSax2EndDocumentCallback pEndDocument = nullptr;
    ZuXmlSax2StartElementCallbackA pStartElement = nullptr;
    ZuXmlSax2AttributeCallbackA pAttribute = nullptr;
    ZuXmlSax2AttributesDoneCallback pAttributesDone = nullptr;
    ZuXmlSax2EndElementCallbackA pEndElement = nullptr;
    ZuXmlSax2CommentCallbackA pComment = nullptr;
    ZuXmlSax2DiagnosticCallbackA pDiagnostic = nullptr;
};

} // namespace zuxml
