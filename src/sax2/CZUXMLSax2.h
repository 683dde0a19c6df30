/* SPDX-License-Identifier: Apache-2.0 */
// The object behind a SAX2 parser handle.
//
// It keeps the caller's context and callback tables and streams files
// through them. Every load builds its own Xerces reader and handler and
// tears them down when the parse ends; a load that fails leaves both in
// place until the next load on this object replaces them.
#pragma once

#include <atomic>
#include <cstdint>

#include <xercesc/sax2/SAX2XMLReader.hpp>

#include "frame/CZUXMLHandle.h"
#include "sax2/CZUXMLSax2Handler.h"
#include "sax2/Sax2CallbackTable.h"

namespace zuxml {

class CZUXMLSax2 final : public CZUXMLHandle {
public:
    explicit CZUXMLSax2(void *pContext) : m_pContext(pContext) {}
    // Frees the object alone. The reader and handler that a failed load
    // keeps (so that the location query still answers where it stopped)
    // are freed by the next load on this object, never by release: the
    // interface states them as memory kept when a parser is released after
    // a failed load.
    ~CZUXMLSax2() override = default;

    // Replace the whole table of one form; used from the next load on.
    // Answer 1.
    int32_t SetWideCallbacks(const Sax2CallbackTableW &callbacks) {
        m_CallbacksW = callbacks;
        return 1;
    }
    int32_t SetNarrowCallbacks(const Sax2CallbackTableA &callbacks) {
        m_CallbacksA = callbacks;
        return 1;
    }

    // Streams the file: progressively (stoppable) for mode 1, in one call
    // for any other mode. Answers 1 when the parse ended, also after errors
    // the handler reported or on a stop; 0 when the progressive start
    // failed, on an XMLException or an unknown exception; -1 on a
    // SAXParseException. The failures print their message on stdout.
    int32_t LoadFromFile(const XMLCh *path, int32_t nMode);
    // The same for a narrow file name, made wide by Xerces' own local code
    // page transcoder rather than the C runtime's locale.
    int32_t LoadFromNarrowFile(const char *path, int32_t nMode);

    // Ends a running progressive load before its next step. May be called
    // from any thread.
    void RequestStop() { m_nStopRequested.store(1, std::memory_order_relaxed); }

    // The position of the running or last failed load; 0 when there is
    // none.
    int32_t CurrentLocation(uint64_t *pnLine, uint64_t *pnColumn) const;

private:
    void BeginLoad();
    void EndLoad();
    int32_t ParseOnce(const XMLCh *path);
    int32_t ParseProgressively(const XMLCh *path);
    template <class Parse> static int32_t CatchAndPrint(Parse parse);

    xercesc::SAX2XMLReader *m_pReader = nullptr;
    CZUXMLSax2Handler *m_pHandler = nullptr;
    // Written by ZuXmlSax2StopLoadFromFile from any thread, read before each
    // step of a progressive load; nothing else is ordered by it.
    std::atomic<int32_t> m_nStopRequested{0};
    void *const m_pContext;
    Sax2CallbackTableW m_CallbacksW;
    Sax2CallbackTableA m_CallbacksA;
};

} // namespace zuxml
