// SPDX-License-Identifier: MIT
#pragma once

#include <tz/xml/TzXmlName.h>
#include <tz/xml/TzXmlWriter.h>

#include <string_view>

/// The name on a tag: prefix, colon and local part, or all of them as one text in place of the
/// local part. They refer to texts that outlive the tag.
struct TzSoapTagName : TzXmlWriter::Spelling {
    bool isUnnamed = false;  ///< Stands for a value without name.
    bool isWritable = false; ///< Known to be a name of XML; false says nothing.

    /// The name on the tag of an element named `name`.
    static TzSoapTagName of(const TzXmlName& name) noexcept {
        return name.isWritable() ? TzSoapTagName{{{}, {}, name.qualifiedText()}, false, true}
                                 : ofUnusual(name);
    }
    /// The name of a block of an envelope. Deliberate: the colon is written even when the prefix is
    /// empty, so that a block never seems to be an unqualified element.
    static TzSoapTagName withColon(std::string_view prefix, std::string_view local) noexcept {
        return {{prefix, TzXmlWriter::Colon, local}};
    }
    /// The name of a block of an envelope named `name`, as above or, with its own prefix, without
    /// colon if that is empty; `prefix` is written in place of that of the name.
    static TzSoapTagName ofBlock(std::string_view prefix, const TzXmlName& name,
                                 bool alwaysColon) noexcept {
        if (name.isWritable() && !prefix.empty() && prefix == name.getPrefix()) {
            return {{{}, {}, name.qualifiedText()}, false, true};
        }
        return {
            {prefix, alwaysColon ? TzXmlWriter::Colon : colonAfter(prefix), name.getLocalName()},
            false,
            prefix == name.getPrefix() && name.isWritable()};
    }
    /// How values without name are called.
    static const TzXmlName& unnamedName();

    /// Writes a start tag that carries nothing.
    void writeStartTag(TzXmlWriter& xml) const;
    /// Writes the end tag and ends the line.
    void writeEndTag(TzXmlWriter& xml) const;
    /// Ends a block of indented lines with the end tag.
    void endBlock(TzXmlWriter& xml) const {
        xml.decrementIndent();
        writeEndTag(xml);
    }

private:
    static std::string_view colonAfter(std::string_view prefix) noexcept {
        return prefix.empty() ? std::string_view() : TzXmlWriter::Colon;
    }
    static TzSoapTagName ofUnusual(const TzXmlName& name) noexcept;
};
