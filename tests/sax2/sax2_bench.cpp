// Speed of a SAX2 load through ZuXml against Xerces' own SAX2 reader in the
// same run, on a generated document:
//   sax2_bench [ELEMENTS] [ROUNDS] [nocomments] [raw|wide|narrow]...
// Each round times raw Xerces, the wide table and the narrow table (or
// those named); the best time of each is reported with its ratio to raw
// Xerces. Both sides hear of comments unless told "nocomments".
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

#include <unistd.h>

#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "zuxml.h"

XERCES_CPP_NAMESPACE_USE

namespace {

// Processor time of this process: the machine may be shared, and wall time
// would count the others' work too.
double Now() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

struct Counts {
    uint64_t elements = 0;
    uint64_t attributes = 0;
    uint64_t textUnits = 0;
    uint64_t comments = 0;
};

// What a minimal caller of raw Xerces does: count, and gather nothing.
class RawHandler : public DefaultHandler {
public:
    Counts counts;
    void startElement(const XMLCh *, const XMLCh *, const XMLCh *, const Attributes &attrs) override {
        ++counts.elements;
        const XMLSize_t n = attrs.getLength();
        for (XMLSize_t i = 0; i < n; ++i)
            counts.textUnits += XMLString::stringLen(attrs.getValue(i)) > 0;
        counts.attributes += n;
    }
    void characters(const XMLCh *, const XMLSize_t length) override { counts.textUnits += length; }
    void comment(const XMLCh *, const XMLSize_t) override { ++counts.comments; }
};

double RawXerces(const XMLCh *path, bool withComments, Counts &counts) {
    const double start = Now();
    SAX2XMLReader *reader = XMLReaderFactory::createXMLReader(XMLPlatformUtils::fgMemoryManager);
    reader->setFeature(XMLUni::fgXercesSchema, false);
    reader->setFeature(XMLUni::fgSAX2CoreValidation, false);
    reader->setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    RawHandler handler;
    reader->setContentHandler(&handler);
    reader->setErrorHandler(&handler);
    if (withComments)
        reader->setLexicalHandler(&handler);
    reader->parse(path);
    delete reader;
    counts = handler.counts;
    return Now() - start;
}

template <class Char> struct Callbacks {
    static void Document(ZuXmlSax2Parser, void *) {}
    static void Start(ZuXmlSax2Parser, void *c, int32_t, int32_t, const Char *, const Char *, const Char *) {
        ++static_cast<Counts *>(c)->elements;
    }
    static void Attribute(ZuXmlSax2Parser, void *c, int32_t, int32_t, const Char *, const Char *, const Char *,
                          const Char *, const Char *value) {
        ++static_cast<Counts *>(c)->attributes;
        static_cast<Counts *>(c)->textUnits += *value != 0;
    }
    static void Done(ZuXmlSax2Parser, void *, int32_t) {}
    static void End(ZuXmlSax2Parser, void *c, int32_t, const Char *, const Char *, const Char *, const Char *text) {
        static_cast<Counts *>(c)->textUnits += *text != 0;
    }
    static void Comment(ZuXmlSax2Parser, void *c, int32_t, const Char *) { ++static_cast<Counts *>(c)->comments; }
    static void Diagnostic(ZuXmlSax2Parser, void *, int32_t, const Char *) {}
};

double ZuXml(const XMLCh *path, bool wide, bool withComments, Counts &counts) {
    counts = Counts();
    const double start = Now();
    ZuXmlSax2Parser parser = ZuXmlCreateSax2Parser(&counts);
    if (wide) {
        using C = Callbacks<ZuXmlWChar>;
        ZuXmlSetSax2ParserCallbacksW(parser, C::Document, C::Document, C::Start, C::Attribute, C::Done, C::End,
                                     withComments ? C::Comment : nullptr, C::Diagnostic);
    } else {
        using C = Callbacks<char>;
        ZuXmlSetSax2ParserCallbacksA(parser, C::Document, C::Document, C::Start, C::Attribute, C::Done, C::End,
                                     withComments ? C::Comment : nullptr, C::Diagnostic);
    }
    ZuXmlSax2LoadFromFileW(parser, reinterpret_cast<const ZuXmlWChar *>(path), 0);
    ZuXmlReleaseSax2Parser(parser);
    return Now() - start;
}

} // namespace

int main(int argc, char **argv) {
    const long elements = argc > 1 ? std::atol(argv[1]) : 300000;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
    char name[] = "/tmp/zuxml_sax2_bench_XXXXXX";
    const int fd = mkstemp(name);
    if (fd < 0)
        return 1;
    close(fd);
    {
        std::ofstream out(name);
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<catalogue xmlns=\"urn:bench\">\n";
        for (long i = 0; i < elements; ++i)
            out << "  <item id=\"i" << i << "\" kind=\"k" << i % 7 << "\">\n    <name>Item number " << i
                << "</name>\n    <price currency=\"EUR\">" << i % 1000 << ".50</price>\n    <!-- note -->\n  </item>\n";
        out << "</catalogue>\n";
    }

    ZuXmlInit();
    XMLCh *path = XMLString::transcode(name);
    const char *labels[3] = {"raw Xerces SAX2", "ZuXml wide", "ZuXml narrow"};
    const char *names[3] = {"raw", "wide", "narrow"};
    // Named variants run alone; none named runs all three.
    bool run[3] = {false, false, false};
    bool withComments = true;
    for (int arg = 3; arg < argc; ++arg) {
        withComments = withComments && std::string(argv[arg]) != "nocomments";
        for (int i = 0; i < 3; ++i)
            run[i] = run[i] || std::string(argv[arg]) == names[i];
    }
    if (!run[0] && !run[1] && !run[2])
        run[0] = run[1] = run[2] = true;
    double best[3] = {1e9, 1e9, 1e9};
    Counts counts[3];
    for (int round = 0; round < rounds; ++round) {
        if (run[0])
            best[0] = std::min(best[0], RawXerces(path, withComments, counts[0]));
        if (run[1])
            best[1] = std::min(best[1], ZuXml(path, true, withComments, counts[1]));
        if (run[2])
            best[2] = std::min(best[2], ZuXml(path, false, withComments, counts[2]));
    }
    for (int i = 0; i < 3; ++i)
        if (run[i])
            std::printf("%-16s %8.3f s  x%.3f  (%llu elements, %llu attributes)\n", labels[i], best[i],
                        best[i] / best[0], static_cast<unsigned long long>(counts[i].elements),
                        static_cast<unsigned long long>(counts[i].attributes));
    XMLString::release(&path);
    ZuXmlCleanup();
    std::remove(name);
    return 0;
}
