// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <memory>

class TzMimeMultipart;
class TzXmlAttribute;

/// Turns what accepts it into SOAP XML text that it keeps, with the MIME parts met on the way.
///
/// Writes what `TzSoapWriter` writes, with other scopes: an element's own declarations hold before
/// its names are looked at, a prefix gets a number only where it clashes, an encoding style that is
/// in force already is left out, and a body's root is written. Several elements may accept one
/// serializer, one after the other: their texts follow each other. Errors, the limit of nesting and
/// the rules on values that are shared between threads are those of `TzSoapWriter`; what was
/// written before an error stays. Belongs to one thread.
class TZSOAP_API TzSoapSerializer : public TzSoapConstVisitor {
public:
    /// The local name of the fault element, "Fault".
    static const TzCString Fault;
    /// What generated prefixes are made from if an element has no prefix, "prefix".
    static const TzCString Prefix;
    /// How values without name are called, "tznone:unnamed".
    static const TzXmlName UnknownName;

    /// A serializer for the latest version, without text.
    TzSoapSerializer();
    /// Copies text, scopes, styles and parts as they stand.
    TzSoapSerializer(const TzSoapSerializer& other);
    /// Copies text, scopes, styles and parts as they stand.
    TzSoapSerializer& operator=(const TzSoapSerializer& other);

    /// Writes without line ends and indentation from now on, or with them, as by default. Compact
    /// text has no white space between tags, and none in a value that holds nothing.
    void setCompact(bool compact);

    /// The text so far. O(text).
    TzCString getSerializedString() const&;
    /// The text so far, handed over: none is left in the serializer. O(1).
    TzCString getSerializedString() &&;
    /// A package with the parts that references met so far point at, in that order. O(parts).
    TzMimeMultipart getMultipart() const;

    /// Writes the report of a misunderstood header entry as an empty tag.
    void visit(const TzSoapMisunderstoodType& value) override;
    /// Writes a reference as an empty tag; its target is written later or becomes a part.
    void visit(const TzSoapReferenceType& value) override;
    /// Writes the text of a user-defined value as it stands.
    void visit(const TzSoapUserDefinedType& value) override;
    /// Writes a simple value on one line; sets its type when it shows one.
    void visit(const TzSoapSimpleType& value) override;
    /// Writes a fault.
    void visit(const TzSoapFault& fault) override;
    /// Writes a composite and its members.
    void visit(const TzSoapCompositeType& value) override;
    /// Writes an array and the items it holds, each with its position.
    void visit(const TzSoapSparseArrayType& value) override;
    /// Writes an array and its items from the offset on, as the writer does.
    void visit(const TzSoapCompactArrayType& value) override;
    /// Does nothing: an array that holds no items is not written.
    void visit(const TzSoapArrayType& value) override;
    /// Writes a generic value: start tag, end tag.
    void visit(const TzSoapType& value) override;
    /// Writes a body with its fault, entries and the values that references point at.
    void visit(const TzSoapBody& body) override;
    /// Writes a header with its entries and the values that references point at.
    void visit(const TzSoapHeader& header) override;
    /// Writes prolog, envelope, header (when it has entries) and body.
    void visit(const TzSoapMessage& message) override;
    ~TzSoapSerializer() override;

protected:
    /// Declares the namespace of `name` in the current scope where its prefix is unbound.
    void verifyQualifiedName(const TzXmlName& name);
    /// The attribute as it is to be written: under this version's name within an envelope or a
    /// block on its own, with a prefix that is bound to its namespace in the current scope. Without
    /// name when this version has no such attribute.
    TzXmlAttribute getVerifiedAttribute(const TzXmlAttribute& attribute);
    /// Gives an attribute of another version the name of this version; false, and nothing done, for
    /// any other one.
    bool adjustSoapAttributeVersion(TzXmlAttribute& attribute) const;
    /// `prefix`, or one made from it by counting, that is unbound or bound to `uri`.
    TzCString getUniquePrefix(const TzCString& prefix, const TzCString& uri) const;

    /// Opens the scope of an element: its style and its declarations.
    void pushNamesAndEncodings(const TzSoapMessage& message);
    /// Opens the scope of a header: its style and its declarations.
    void pushNamesAndEncodings(const TzSoapHeader& header);
    /// Opens the scope of a body: its style and its declarations.
    void pushNamesAndEncodings(const TzSoapBody& body);
    /// Opens the scope of a value: its style and its declarations.
    void pushNamesAndEncodings(const TzSoapType& value);
    /// Closes the scope opened last by `pushNamesAndEncodings`. In a copy, also those that were
    /// open when it was made.
    void popNamesAndEncodings(const TzSoapMessage& message);
    /// Closes the scope of a header, the one opened last.
    void popNamesAndEncodings(const TzSoapHeader& header);
    /// Closes the scope of a body, the one opened last.
    void popNamesAndEncodings(const TzSoapBody& body);
    /// Closes the scope of a value, the one opened last.
    void popNamesAndEncodings(const TzSoapType& value);

    /// Adds the attributes of an element to those of the start tag being prepared; the element must
    /// stay as it is until that tag is written.
    void populateAttributeSet(const TzSoapMessage& message);
    /// Closes the scope of a header, the one opened last.
    void populateAttributeSet(const TzSoapHeader& header);
    /// Closes the scope of a body, the one opened last.
    void populateAttributeSet(const TzSoapBody& body);
    /// Closes the scope of a value, the one opened last.
    void populateAttributeSet(const TzSoapType& value);
    /// Forgets the attributes of the start tag being prepared.
    void clearAttributeSet();

    /// Whether `style` is in force around the current element.
    bool isEncodingStylePresent(const TzCString& style) const;
    /// The style in force around the current element, "" without one.
    TzCString getLastSpecifiedEncodingStyle() const;
    /// Whether the element around the current one stated its style: always true.
    bool getLastSpecifiedEncodingStyleState() const;
    /// Adds the style of SOAP to the start tag being prepared unless `value` states a style or that
    /// one is in force.
    void ensureSoapEncodingStyleIsPresent(const TzSoapType& value);

    /// Writes the declarations of the current scope.
    void writeNamespaceAttributes();
    /// Writes the attributes of the start tag being prepared.
    void writeNonNamespaceAttributes();
    /// Writes a name, `UnknownName` for one without local part.
    void writeQualifiedName(const TzXmlName& name);
    /// Writes a value's start tag, and ends the line when `newline`.
    void writeTypeStartTag(const TzSoapType& value, bool newline);
    /// Writes a value's start tag as an empty-element tag and ends the line.
    void writeTypeEmptyTag(const TzSoapType& value);
    /// Writes a value's end tag and ends the line.
    void writeTypeEndTag(const TzSoapType& value);
    /// Writes the subcodes of `fault` from `index` up to `count`, each within the one before.
    void writeSubCode(const TzSoapFault& fault, unsigned int count, unsigned int index);

private:
    struct Owned;

    std::unique_ptr<Owned> owned_;
};
