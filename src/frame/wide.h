/* SPDX-License-Identifier: Apache-2.0 */
// The interface's wide text is Xerces' own: 16-bit UTF-16 units, declared
// as wchar_t on Windows and char16_t elsewhere. Xerces' XMLCh is one of the
// two, so the units pass through unchanged; only the pointer type differs.
#pragma once

#include <xercesc/util/XercesDefs.hpp>

#include "zuxml.h"

namespace zuxml {

static_assert(sizeof(ZuXmlWChar) == sizeof(XMLCh), "wide text is 16-bit units on every platform");

inline const XMLCh *AsXml(const ZuXmlWChar *text) { return reinterpret_cast<const XMLCh *>(text); }
inline XMLCh *AsXml(ZuXmlWChar *text) { return reinterpret_cast<XMLCh *>(text); }
inline const ZuXmlWChar *AsWide(const XMLCh *text) { return reinterpret_cast<const ZuXmlWChar *>(text); }

} // namespace zuxml
