// SPDX-License-Identifier: MIT
#pragma once

#include <libxml/tree.h>
#include <pugixml.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

/// The other programs' work that ours is compared with.
namespace peers {

/// Runs Expat over `text` with handlers that do nothing.
void expatNoOp(std::string_view text);

/// Frees a document of libxml2.
struct FreeDocument {
    void operator()(xmlDoc* document) const noexcept { xmlFreeDoc(document); }
};
using LibxmlDocument = std::unique_ptr<xmlDoc, FreeDocument>;

/// Reads `text` into a DOM of libxml2.
LibxmlDocument libxmlRead(std::string_view text);
/// Writes a DOM of libxml2 by xmlDocDumpMemory; returns the number of bytes.
int libxmlWrite(const LibxmlDocument& document);

/// Parses `text`, a MIME package, by GMime.
void gmimeRead(std::string_view text);

using PugixmlDocument = std::shared_ptr<pugi::xml_document>;

/// Reads `text` into a DOM of pugixml and drops it.
void pugixmlRead(std::string_view text);
/// Reads `text` into a DOM of pugixml.
PugixmlDocument pugixmlDocument(std::string_view text);
/// Replaces `text` by that of a DOM of pugixml, not indented.
void pugixmlWrite(const PugixmlDocument& document, std::string& text);

/// Looks for all of `wanted` in `text` by memmem; returns how often it was found.
std::size_t memmemCount(std::string_view text, std::string_view wanted);

} // namespace peers
