/* SPDX-License-Identifier: Apache-2.0 */
// Every kind of change a document can undergo between two calls on its
// handle: each editing entry point, wide and narrow, through the handle
// and through another handle with this document's nodes, and each reload.
// What one call keeps for the next must never survive any of them.
#pragma once

#include <functional>
#include <vector>

#include "zuxml.h"

namespace zuxml_dom_test {

// The edited document and the document of the second handle.
constexpr char kEditedXml[] = "<r a=\"1\" b=\"2\"><c>text</c><!--note--><d/></r>";
constexpr char kOtherXml[] = "<o><p q=\"v\">other</p></o>";

// Nodes are looked up before the first call: a lookup is a call on the
// handle of its own.
struct Nodes {
    ZuXmlNode c, d, root, otherP;
};

Nodes Find(ZuXmlDocument document, ZuXmlDocument other);

// An edit of the document behind `document` (the first argument); the
// second is a handle with a document of its own (kOtherXml).
using EditOf = std::function<void(ZuXmlDocument, ZuXmlDocument, const Nodes &)>;

struct NamedEdit {
    const char *label;
    EditOf apply;
    // A reload: every node handle of the document is gone after it.
    bool reloads = false;
};

const std::vector<NamedEdit> &Edits();

} // namespace zuxml_dom_test
