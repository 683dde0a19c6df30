// SPDX-License-Identifier: Apache-2.0
// Lifecycle entries: Xerces start and stop, and the one release entry for
// every kind of handle.
#include "zuxml.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "frame/CZUXMLHandle.h"

XERCES_CPP_NAMESPACE_USE

extern "C" {

ZUXML_API int32_t ZuXmlInit(void) {
    try {
        // No message directory, panic handler or memory manager of our own:
        // Xerces' defaults serve. Xerces counts initialisations itself, so
        // repeated calls need no guard here.
        XMLPlatformUtils::Initialize(XMLUni::fgXercescDefaultLocale, nullptr, nullptr, nullptr);
    } catch (const XMLException &) {
        return 0;
    }
    return 1;
}

ZUXML_API int32_t ZuXmlCleanup(void) {
    XMLPlatformUtils::Terminate();
    return 1;
}

ZUXML_API int32_t ZuXmlReleaseDocument(ZuXmlDocument hDocument) {
    delete static_cast<zuxml::CZUXMLHandle *>(hDocument);
    return 1;
}

#if !defined(_WIN32)
// The second names of the shared entries are the same functions, not copies:
// callers may compare addresses. On Windows exports/ZUXML.def binds them.
ZUXML_API int32_t ZuXmlSax2Init(void) __attribute__((alias("ZuXmlInit")));
ZUXML_API int32_t ZuXmlSax2Cleanup(void) __attribute__((alias("ZuXmlCleanup")));
ZUXML_API int32_t ZuXmlReleaseSax2Parser(ZuXmlSax2Parser hParser) __attribute__((alias("ZuXmlReleaseDocument")));
#endif

} // extern "C"
