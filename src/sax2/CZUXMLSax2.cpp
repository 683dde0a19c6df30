// SPDX-License-Identifier: Apache-2.0
#include "sax2/CZUXMLSax2.h"

#include <iostream>

#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "frame/CZUXMLTextRecord.h"

XERCES_CPP_NAMESPACE_USE

namespace zuxml {

namespace {

// The parse parts of a load answer this when Xerces finished (or was
// stopped) without an exception; the load then tears down and answers 1.
constexpr int32_t kParsed = 1;

void PrintExceptionMessage(const XMLCh *message) {
    char *text = XMLString::transcode(message, XMLPlatformUtils::fgMemoryManager);
    std::cout << "Exception message is: \n" << (text ? text : "") << "\n";
    XMLString::release(&text, XMLPlatformUtils::fgMemoryManager);
}

} // namespace

// A load without a file name is refused before anything is made: no
// reader, no handler, no message and no callback, and the parser keeps what
// it held.
int32_t CZUXMLSax2::LoadFromFile(const XMLCh *path, int32_t nMode) {
    if (!path)
        return 0;
    const int32_t result = nMode == 1 ? ParseProgressively(path) : ParseOnce(path);
    if (result != kParsed) {
        m_pHandler->EndScan();
        return result;
    }
    EndLoad();
    return 1;
}

// A narrow name goes through Xerces' local code page transcoder, as Xerces
// itself turns a narrow system identifier into its own text, not through
// the C runtime's locale of the other narrow entries: a name that a program
// hands to Xerces' own narrow parse opens the same file here.
int32_t CZUXMLSax2::LoadFromNarrowFile(const char *path, int32_t nMode) {
    if (!path)
        return 0;
    CZUXMLTextRecord name(path);
    return LoadFromFile(name.ParserForm(), nMode);
}

int32_t CZUXMLSax2::CurrentLocation(uint64_t *pnLine, uint64_t *pnColumn) const {
    if (!m_pHandler)
        return 0;
    return m_pHandler->Location(pnLine, pnColumn);
}

// A fresh reader and handler for every load, replacing what a failed load
// left. Nothing but the three features is configured, so each load starts
// from Xerces' defaults. Exceptions from here are not the load's to catch.
void CZUXMLSax2::BeginLoad() {
    delete m_pReader;
    m_pReader = nullptr;
    m_pReader = XMLReaderFactory::createXMLReader(XMLPlatformUtils::fgMemoryManager);
    m_pReader->setFeature(XMLUni::fgXercesSchema, false);
    m_pReader->setFeature(XMLUni::fgSAX2CoreValidation, false);
    m_pReader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);

    delete m_pHandler;
    m_pHandler = nullptr;
    m_pHandler = new CZUXMLSax2Handler(ToHandle(this), m_pContext, m_CallbacksW, m_CallbacksA);
    m_pReader->setContentHandler(m_pHandler);
    m_pReader->setErrorHandler(m_pHandler);
    // Without a comment callback no lexical handler is registered, so
    // Xerces does not report comments at all.
    if (m_pHandler->WantsComments())
        m_pReader->setLexicalHandler(m_pHandler);
}

// The reader goes first: it may still refer to the handler.
void CZUXMLSax2::EndLoad() {
    delete m_pReader;
    m_pReader = nullptr;
    delete m_pHandler;
    m_pHandler = nullptr;
}

// Runs the parse, catching what a load's contract names: an XMLException
// or anything unknown answers 0, a SAXParseException -1, each after its
// message on stdout. Only the parse itself runs here; what is thrown before
// or after it passes to the caller. A caught failure leaves reader and
// handler in place.
template <class Parse> int32_t CZUXMLSax2::CatchAndPrint(Parse parse) {
    try {
        return parse();
    } catch (const XMLException &exc) {
        PrintExceptionMessage(exc.getMessage());
        return 0;
    } catch (const SAXParseException &exc) {
        PrintExceptionMessage(exc.getMessage());
        return -1;
    } catch (...) {
        std::cout << "Unexpected Exception \n";
        return 0;
    }
}

// A stop request means nothing to the one-shot load.
int32_t CZUXMLSax2::ParseOnce(const XMLCh *path) {
    BeginLoad();
    return CatchAndPrint([&] {
        m_pReader->parse(path);
        return kParsed;
    });
}

// The stop flag is read afresh before every step, the first included, so a
// stop ends the load after the step that is under way. Stopped or read to
// the end, the load answers the same; destroying the reader ends the scan.
int32_t CZUXMLSax2::ParseProgressively(const XMLCh *path) {
    m_nStopRequested.store(0, std::memory_order_relaxed);
    BeginLoad();
    return CatchAndPrint([&] {
        XMLPScanToken token;
        if (!m_pReader->parseFirst(path, token)) {
            std::cout << "parseFirst() failed\n";
            return 0;
        }
        bool more = true;
        while (more && m_nStopRequested.load(std::memory_order_relaxed) == 0)
            more = m_pReader->parseNext(token);
        return kParsed;
    });
}

} // namespace zuxml
