// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlWriter.h>

#include <string_view>

/// The name on a tag: prefix, colon and local part, which refer to texts that outlive the tag.
struct TzSoapTagName {
    std::string_view prefix;
    std::string_view colon;
    std::string_view local;
    bool isUnnamed = false; ///< Stands for a value without name.

    /// The name on the tag of an element named `name`.
    static TzSoapTagName of(const TzXmlName& name) noexcept {
        const TzCString& prefix = name.getPrefix();
        return name.isEmpty() ? unnamed()
                              : TzSoapTagName{
                                    prefix,
                                    prefix.empty() ? std::string_view() : TzXmlWriter::Colon,
                                    name.getLocalName(),
                                    false,
                                };
    }
    /// The name of a block of an envelope. Deliberate: the colon is written even when the prefix is
    /// empty, so that a block never seems to be an unqualified element.
    static TzSoapTagName withColon(std::string_view prefix, std::string_view local) noexcept {
        return {prefix, TzXmlWriter::Colon, local, false};
    }
    /// The name of a block of an envelope with its own prefix, without colon if that is empty.
    static TzSoapTagName withPrefix(std::string_view prefix, std::string_view local) noexcept {
        return {prefix, prefix.empty() ? std::string_view() : TzXmlWriter::Colon, local, false};
    }
    /// How values without name are called.
    static const TzXmlName& unnamedName();

    /// Writes a start tag that carries nothing.
    void writeStartTag(TzXmlWriter& xml) const {
        xml.writeMarkup(TzXmlWriter::StartTag, prefix, colon, local, TzXmlWriter::EndTag);
    }
    /// Writes the end tag and ends the line.
    void writeEndTag(TzXmlWriter& xml) const {
        xml.writeMarkupLine(TzXmlWriter::StartEndTag, prefix, colon, local, TzXmlWriter::EndTag);
    }
    /// Ends a block of indented lines with the end tag.
    void endBlock(TzXmlWriter& xml) const {
        xml.decrementIndent();
        writeEndTag(xml);
    }

private:
    static TzSoapTagName unnamed() noexcept;
};
