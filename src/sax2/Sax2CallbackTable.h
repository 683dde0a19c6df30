/* SPDX-License-Identifier: Apache-2.0 */
// The caller's eight SAX2 callbacks, in the order the setters take them.
//
// There is one table of wide callbacks and one of narrow callbacks, alike
// but for the text type of five entries; for each event the handler calls
// the wide entry when it is set, else the narrow one. A NULL entry means no
// interest in that event.
#pragma once

#include "zuxml.h"

namespace zuxml {

template <class StartElement, class Attribute, class EndElement, class Comment, class Diagnostic>
struct Sax2CallbackTable {
    ZuXmlSax2StartDocumentCallback pStartDocument = nullptr;
    ZuXmlSax2EndDocumentCallback pEndDocument = nullptr;
    StartElement pStartElement = nullptr;
    Attribute pAttribute = nullptr;
    ZuXmlSax2AttributesDoneCallback pAttributesDone = nullptr;
    EndElement pEndElement = nullptr;
    Comment pComment = nullptr;
    Diagnostic pDiagnostic = nullptr;
};

using Sax2CallbackTableW =
    Sax2CallbackTable<ZuXmlSax2StartElementCallbackW, ZuXmlSax2AttributeCallbackW, ZuXmlSax2EndElementCallbackW,
                      ZuXmlSax2CommentCallbackW, ZuXmlSax2DiagnosticCallbackW>;
using Sax2CallbackTableA =
    Sax2CallbackTable<ZuXmlSax2StartElementCallbackA, ZuXmlSax2AttributeCallbackA, ZuXmlSax2EndElementCallbackA,
                      ZuXmlSax2CommentCallbackA, ZuXmlSax2DiagnosticCallbackA>;

} // namespace zuxml
