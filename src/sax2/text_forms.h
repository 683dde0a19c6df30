/* SPDX-License-Identifier: Apache-2.0 */
// The two forms in which the SAX2 handler hands Xerces' text to callbacks,
// as policies of one set of event dispatchers (CZUXMLSax2Handler.cpp).
//
// Each form names its callback table, the type of its texts, the string
// type in which an open element's character data is gathered, and how a
// text of Xerces becomes the form's text: Stable for names and URIs, Type
// for attribute types (texts a document repeats throughout), Transient for
// values, comments and messages (good until the next transient text); see
// CZUXMLNarrowCache for what the three promise.
#pragma once

#include <string>

#include <xercesc/util/XercesDefs.hpp>

#include "frame/wide.h"
#include "sax2/CZUXMLNarrowCache.h"
#include "sax2/Sax2CallbackTable.h"

namespace zuxml {

// Wide callbacks take Xerces' own text: a callback's strings need only live
// until it returns, so Xerces' strings are handed over as they are and both
// kinds of text are the same. Character data is gathered by the length
// Xerces passes with it.
struct WideForm {
    using Table = Sax2CallbackTableW;
    using Text = const ZuXmlWChar *;
    using Gathered = std::basic_string<XMLCh>;

    static const ZuXmlWChar *Stable(CZUXMLNarrowCache *, const XMLCh *text) { return AsWide(text ? text : u""); }
    static const ZuXmlWChar *Type(CZUXMLNarrowCache *cache, const XMLCh *text) { return Stable(cache, text); }
    static const ZuXmlWChar *Transient(CZUXMLNarrowCache *cache, const XMLCh *text) { return Stable(cache, text); }
    static void Append(CZUXMLNarrowCache *, Gathered &slot, const XMLCh *chars, XMLSize_t length) {
        slot.append(chars, length);
    }
    static const ZuXmlWChar *View(const Gathered &slot) { return AsWide(slot.c_str()); }
};

// Narrow callbacks take Xerces' text in its local code page, the bytes of
// XMLString::transcode (Xerces' own transcoder, not the C runtime's locale),
// through the handler's cache. Character data is gathered by the length
// Xerces passes with it.
struct NarrowForm {
    using Table = Sax2CallbackTableA;
    using Text = const char *;
    using Gathered = CZUXMLNarrowText;

    static const char *Stable(CZUXMLNarrowCache *cache, const XMLCh *text) { return cache->Stable(text); }
    static const char *Type(CZUXMLNarrowCache *cache, const XMLCh *text) { return cache->Type(text); }
    static const char *Transient(CZUXMLNarrowCache *cache, const XMLCh *text) { return cache->Transient(text); }
    static void Append(CZUXMLNarrowCache *cache, Gathered &slot, const XMLCh *chars, XMLSize_t length) {
        cache->Gather(slot, chars, length);
    }
    static const char *View(const Gathered &slot) { return slot.c_str(); }
};

} // namespace zuxml
