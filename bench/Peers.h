// SPDX-License-Identifier: MIT
#pragma once

#include <libxml/tree.h>

#include <memory>
#include <string_view>

/// The other programs' work that ours is compared with.
namespace peers {

/// Runs Expat over `text` with handlers that do nothing.
void expatNoOp(std::string_view text);

/// Frees a document of libxml2.
struct FreeDocument {
    void operator()(xmlDoc* document) const noexcept { xmlFreeDoc(document); }
};
using Document = std::unique_ptr<xmlDoc, FreeDocument>;

/// Reads `text` into a DOM of libxml2.
Document libxmlRead(std::string_view text);
/// Writes a DOM of libxml2 by xmlDocDumpMemory; returns the number of bytes.
int libxmlWrite(const Document& document);

/// Parses `text`, a MIME package, by GMime.
void gmimeRead(std::string_view text);

/// Reads `text` into a DOM of pugixml.
void pugixmlRead(std::string_view text);

} // namespace peers
