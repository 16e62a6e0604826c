// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapConstVisitor.h>
#include <soap/TzSoapExport.h>
#include <soap/TzSoapVersion.h>

#include <memory>

class TzMimeMultipart;
class TzXmlWriter;
struct TzSoapOutputPath;

/// Turns a message, header, body, fault or value that accepts it into SOAP XML text.
///
/// A writer is for one write: what it declared and wrote is not forgotten. Values with an id are
/// remembered, and values that references point at are written once, at the end of the header or
/// body. Names, prefixes and namespaces come from the elements; a prefix that is bound already is
/// never bound again to another namespace. Text of simple values is escaped unless their
/// `EscapeText` says otherwise, the markup of user-defined values never is: a program that echoes
/// received or foreign text that way puts it into its own output. A simple value that shows its
/// type has that type set on it by being written, so messages that share values must not be written
/// by two threads at once. One writer and the text it writes to belong to one thread.
///
/// Errors: `TzXmlDomainError` for values nested deeper than `DepthLimit` and for a value that
/// stands within itself (one that several places share is written at each of them),
/// `TzXmlBadArgError` for text that XML cannot carry, for names of elements and attributes and
/// declared prefixes that are not names of XML, and for a reference that changes its kind,
/// `TzXmlInternalError` INTERNAL_ERROR for a kind of value that does not exist and for user-defined
/// markup without a start tag. What was written before an error stays written.
class TZSOAP_API TzSoapWriter : public TzSoapConstVisitor {
public:
    /// Deepest nesting of elements that is written, unless a message may be read deeper: then it is
    /// written as deep as that. Depth takes no stack, 64 KiB are enough for all writing. The visits
    /// of a derived class stand within each other, though: these take half a KiB for each level
    /// beside what they take themselves, and write no deeper than this, which is 1 MiB.
    static constexpr unsigned int DepthLimit = 2000;

    /// An independent writer to `writer` in the latest version. MIME parts that references point at
    /// are inserted into `multipart`, unless that is null. Both must outlive this object.
    TzSoapWriter(TzXmlWriter* writer, TzMimeMultipart* multipart);
    /// A writer of an element within the one that `parent` writes: starts with its settings and
    /// shares its namespaces, its styles and what it wrote. `parent` must not be null.
    explicit TzSoapWriter(TzSoapWriter* parent);
    /// A copy of an independent writer has a copy of all that `other` remembers; a copy of a writer
    /// within another shares it.
    TzSoapWriter(const TzSoapWriter& other);
    /// Copies like the copy constructor.
    TzSoapWriter& operator=(const TzSoapWriter& other);

    /// Writes messages in `version` from now on, whatever their own version.
    void setVersion(TzSoapVersion::Version version);
    /// Writes to `writer` from now on, which must outlive this object.
    void setWriter(TzXmlWriter* writer);
    /// Writes without line ends and indentation from now on, or with them; makes the XML writers
    /// that this object writes to do so. Without a call they keep their own layout, which is not
    /// compact by default. Compact text has no white space between tags, and none in a value that
    /// holds nothing.
    void setCompact(bool compact);
    /// Inserts MIME parts into `multipart` from now on, or nowhere when it is null.
    void setMimeMultipart(TzMimeMultipart* multipart);

    /// Writes the report of a misunderstood header entry as an empty tag.
    void visit(const TzSoapMisunderstoodType& value) override;
    /// Writes a reference as an empty tag; its target is written later or inserted into the
    /// multipart.
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
    /// Writes an array and its items from the offset on; items never assigned are written as nil,
    /// those at the end are left out.
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
    ~TzSoapWriter() override;

private:
    friend struct TzSoapAccess;

    explicit TzSoapWriter(TzSoapOutputPath& path) noexcept;

    std::shared_ptr<TzSoapOutputPath> path_; // kept by writers within, too
};
