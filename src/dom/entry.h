// What every DOM entry point shares: turning handles back into objects and
// rejecting a NULL document handle with the operation's failure value.
#pragma once

#include <utility>

#include "dom/CZUXMLDocument.h"
#include "frame/buffer.h"
#include "frame/wide.h"
#include "zuxml.h"

namespace zuxml {

inline xercesc::DOMNode *NodeOf(ZuXmlNode node) { return static_cast<xercesc::DOMNode *>(node); }

// Calls method on the document behind handle, or answers failure for NULL.
// Text kept by a WriteToString call is dropped first: it is only for the
// next call on the handle, and only when that call writes to a string.
template <class Result, class Method, class... Args>
Result CallDocument(ZuXmlDocument handle, Result failure, Method method, Args &&...args) {
    if (!handle)
        return failure;
    CZUXMLDocument *document = FromHandle<CZUXMLDocument>(handle);
    document->DropWrittenText();
    return static_cast<Result>((document->*method)(std::forward<Args>(args)...));
}

// A getter of one text: the document method fills a TextResult (its last
// argument) and the caller-buffer protocol hands it out, wide or narrow.
template <class Method, class... Args>
int32_t ReadTextW(ZuXmlDocument handle, Method method, ZuXmlWChar *buffer, int32_t *length, Args &&...args) {
    TextResult text;
    return DeliverW(CallDocument(handle, 0, method, std::forward<Args>(args)..., text), text, AsXml(buffer), length);
}

template <class Method, class... Args>
int32_t ReadTextA(ZuXmlDocument handle, Method method, char *buffer, int32_t *length, Args &&...args) {
    TextResult text;
    return DeliverA(CallDocument(handle, 0, method, std::forward<Args>(args)..., text), text, buffer, length);
}

// WriteToString, its text handed out by deliver (the caller-buffer
// protocol, wide or narrow): text that the buffer could not take is kept
// for the next call, which then hands it out instead of serialising the
// document again.
template <class Deliver> int32_t WriteText(ZuXmlDocument handle, Deliver deliver) {
    TextResult text;
    if (!handle)
        return deliver(0, text);
    CZUXMLDocument *document = FromHandle<CZUXMLDocument>(handle);
    if (deliver(document->WriteToString(text), text) == 1) {
        document->DropWrittenText();
        return 1;
    }
    document->KeepWrittenText();
    return 0;
}

} // namespace zuxml
