// The narrow forms of the names a document repeats: element and attribute
// names, namespace URIs and attribute types.
//
// Each distinct name is transcoded once per load with XMLString::transcode,
// as every narrow text is, and its bytes are kept for the next time it
// occurs. Xerces' local code page transcoder converts each call afresh from
// its initial state, so a name's narrow form does not depend on where it
// occurs and the kept bytes are the bytes a new transcode would give.
// Names are few where elements are many, so the store stays small; it
// grows with the distinct names of the document and never drops one, so
// every text it handed out lives as long as the handler.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include <xercesc/util/XercesDefs.hpp>

namespace zuxml {

class CZUXMLNarrowNames {
public:
    // The narrow form of name; the empty string for NULL or for a name the
    // code page cannot represent.
    const char *Get(const XMLCh *name);

private:
    struct Entry {
        std::basic_string<XMLCh> name;
        std::string narrow;
    };

    // Keys view the names held by the entries; a deque never moves them.
    std::deque<Entry> m_Entries;
    std::unordered_map<std::basic_string_view<XMLCh>, const char *> m_Index;
};

} // namespace zuxml
