// SPDX-License-Identifier: MIT
#pragma once

#include "output/TzSoapContainerOutput.h"
#include "output/TzSoapFaultOutput.h"
#include "output/TzSoapMessageOutput.h"
#include "output/TzSoapOutputContext.h"
#include "output/TzSoapStartTag.h"
#include "output/TzSoapValueOutput.h"

#include <memory>
#include <optional>
#include <utility>

class TzSoapBody;
class TzSoapCompactArrayType;
class TzSoapCompositeType;
class TzSoapConstVisitor;
class TzSoapFault;
class TzSoapHeader;
class TzSoapMessage;
class TzSoapMisunderstoodType;
class TzSoapReferenceType;
class TzSoapSimpleType;
class TzSoapSparseArrayType;
class TzSoapType;
class TzSoapUserDefinedType;

/// What one writer or one serializer is made of.
struct TzSoapOutputPath {
    /// Output by `kind` to `xml`, with a new scope. MIME parts go into `multipart` unless
    /// that is null.
    TzSoapOutputPath(const TzSoapOutputContext::Kind& kind, TzXmlWriter* xml,
                     TzMimeMultipart* multipart)
        : own(std::in_place, TzSoapVersion::getLatestSoapVersion()),
          context(kind, xml, multipart, *own) {}
    /// Output in a copy of `other`: of scope and reference book, too, unless that shares them with
    /// the writer around it.
    explicit TzSoapOutputPath(const TzSoapOutputContext& other) : context(other) {}
    /// Output within that of `around`, which shares its scope and reference book.
    explicit TzSoapOutputPath(const std::shared_ptr<TzSoapOutputPath>& around)
        : context(around->context, around) {}
    TzSoapOutputPath(const TzSoapOutputPath&) = delete;
    TzSoapOutputPath& operator=(const TzSoapOutputPath&) = delete;

    /// Becomes a copy of `other`, with copies of scope and reference book unless it shares them.
    void assign(const TzSoapOutputPath& other);

    // What a visitor does for an element of each kind; `visitor` gets the contents of those that
    // hold others.
    void write(const TzSoapMisunderstoodType& value);
    void write(TzSoapConstVisitor& visitor, const TzSoapReferenceType& value);
    void write(const TzSoapUserDefinedType& value);
    void write(const TzSoapSimpleType& value);
    void write(TzSoapConstVisitor& visitor, const TzSoapFault& fault);
    void write(TzSoapConstVisitor& visitor, const TzSoapCompositeType& value);
    void write(TzSoapConstVisitor& visitor, const TzSoapSparseArrayType& value);
    void write(TzSoapConstVisitor& visitor, const TzSoapCompactArrayType& value);
    void write(const TzSoapType& value);
    void write(TzSoapConstVisitor& visitor, const TzSoapBody& body);
    void write(TzSoapConstVisitor& visitor, const TzSoapHeader& header);
    void write(TzSoapConstVisitor& visitor, const TzSoapMessage& message);

    std::optional<TzSoapOutputContext::Shared> own; // none of copies and of paths within others
    TzSoapOutputContext context;
    TzSoapStartTag startTag{context};
    TzSoapValueOutput values{context, startTag};
    TzSoapContainerOutput containers{context, startTag, values};
    TzSoapFaultOutput faults{context, startTag, containers};
    TzSoapMessageOutput messages{context, startTag, containers};
};
