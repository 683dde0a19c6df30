/* SPDX-License-Identifier: Apache-2.0 */
// The common base of every object a caller holds a handle to.
//
// Documents and SAX2 parsers are released through one entry point
// (ZuXmlReleaseDocument is also ZuXmlReleaseSax2Parser), which cannot know
// which kind it was given. Both derive from this class so that the entry
// point deletes through the virtual destructor and each object cleans up
// after its own kind.
#pragma once

namespace zuxml {

class CZUXMLHandle {
public:
    CZUXMLHandle() = default;
    CZUXMLHandle(const CZUXMLHandle &) = delete;
    CZUXMLHandle &operator=(const CZUXMLHandle &) = delete;
    virtual ~CZUXMLHandle() = default;

    // Run by the boundary helper (frame/boundary.h) as an entry point
    // begins to work on the object, before the operation itself. A kind of
    // object that must learn of every call on its handle gives itself a
    // method of this name; the boundary calls the one of the object's own
    // type, so there is no virtual call.
    void OnEntry() {}
};

// Handles cross the interface as void*; they always hold a CZUXMLHandle*.
inline void *ToHandle(CZUXMLHandle *object) { return object; }

template <class T> T *FromHandle(void *handle) {
    return static_cast<T *>(static_cast<CZUXMLHandle *>(handle));
}

} // namespace zuxml
