/* SPDX-License-Identifier: Apache-2.0 */
// Documents that Xerces' serializer cannot finish writing to a file.
#pragma once

#include <xercesc/dom/DOMDocument.hpp>

namespace zuxml {

// True when writing document to a file would never return. The serializer
// hands text to the output encoding's transcoder in runs; the transcoders
// that read UTF-16 pairs (UTF-8 and UCS-4) leave a lead surrogate at the
// end of a run for the next run, so a run that ends in one is retried for
// ever. Such runs are written unchecked only from namespace URIs, the
// identifiers of the document type and CDATA sections; every other text is
// refused by the serializer before it is written.
bool WriteWouldNotReturn(const xercesc::DOMDocument *document);

} // namespace zuxml
