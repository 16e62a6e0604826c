// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapConstVisitorBase.h>
#include <soap/TzSoapExport.h>

class TzSoapArrayType;
class TzSoapBody;
class TzSoapCompactArrayType;
class TzSoapCompositeType;
class TzSoapFault;
class TzSoapHeader;
class TzSoapMessage;
class TzSoapMisunderstoodType;
class TzSoapReferenceType;
class TzSoapSimpleType;
class TzSoapSparseArrayType;
class TzSoapType;
class TzSoapUserDefinedType;

/// A walk over a message by const handles: one operation for each kind of element.
///
/// The more specific handle that a value is passed on as keeps it alive: the value stays
/// until the visit ends, whatever happens to the visited handle and to its container meanwhile.
/// Generic values, faults, bodies, headers and messages come as the visited handle itself, which
/// must outlive the visit.
///
/// Holds no data, copying copies nothing. One visitor is used by one thread at a time. A structure
/// that contains itself is walked without end: do not build one.
class TZSOAP_API TzSoapConstVisitor : public TzSoapConstVisitorBase {
public:
    /// A report of a misunderstood header entry.
    virtual void visit(const TzSoapMisunderstoodType& value) = 0;
    /// A reference.
    virtual void visit(const TzSoapReferenceType& value) = 0;
    /// A user-defined value.
    virtual void visit(const TzSoapUserDefinedType& value) = 0;
    /// A simple value.
    virtual void visit(const TzSoapSimpleType& value) = 0;
    /// A fault.
    virtual void visit(const TzSoapFault& fault) = 0;
    /// A composite value.
    virtual void visit(const TzSoapCompositeType& value) = 0;
    /// A sparse array.
    virtual void visit(const TzSoapSparseArrayType& value) = 0;
    /// A compact array.
    virtual void visit(const TzSoapCompactArrayType& value) = 0;
    /// An array that is neither sparse nor compact.
    virtual void visit(const TzSoapArrayType& value) = 0;
    /// A generic or default value.
    virtual void visit(const TzSoapType& value) = 0;
    /// A body.
    virtual void visit(const TzSoapBody& body) = 0;
    /// A header.
    virtual void visit(const TzSoapHeader& header) = 0;
    /// A message.
    virtual void visit(const TzSoapMessage& message) = 0;
    virtual ~TzSoapConstVisitor();

protected:
    TzSoapConstVisitor() = default;
    TzSoapConstVisitor(const TzSoapConstVisitor&) = default;
    TzSoapConstVisitor& operator=(const TzSoapConstVisitor&) = default;

private:
    friend class TzSoapType;

    /// `TzXmlInternalError` INTERNAL_ERROR for an unknown kind of value.
    void doVisit(const TzSoapType& value) override;
};
