// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <soap/TzSoapVisitorBase.h>

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

/// A walk over a message by mutable handles: one operation for each kind of element.
///
/// A visitor may do anything to what it visits and to the containers around it: the more specific
/// handle that a value is passed on as keeps it alive, so the value stays until the visit
/// ends even where the visitor removes, replaces or moves it. What is assigned to that handle takes
/// the place of the visited one when the visit ends, by an exception or not; the visited handle
/// must still exist then. A value that is moved from the handle is shared with the visited one. Two
/// exceptions: an array that is neither sparse nor compact comes in a new handle, to which
/// assigning changes nothing else; and generic values, faults, bodies, headers and messages come as
/// the visited handle itself, which must outlive the visit.
///
/// Holds no data, copying copies nothing. One visitor is used by one thread at a time. A structure
/// that contains itself is walked without end: do not build one.
class TZSOAP_API TzSoapVisitor : public TzSoapVisitorBase {
public:
    /// A report of a misunderstood header entry.
    virtual void visit(TzSoapMisunderstoodType& value) = 0;
    /// A reference.
    virtual void visit(TzSoapReferenceType& value) = 0;
    /// A user-defined value.
    virtual void visit(TzSoapUserDefinedType& value) = 0;
    /// A simple value.
    virtual void visit(TzSoapSimpleType& value) = 0;
    /// A fault.
    virtual void visit(TzSoapFault& fault) = 0;
    /// A composite value.
    virtual void visit(TzSoapCompositeType& value) = 0;
    /// A sparse array.
    virtual void visit(TzSoapSparseArrayType& value) = 0;
    /// A compact array.
    virtual void visit(TzSoapCompactArrayType& value) = 0;
    /// An array that is neither sparse nor compact.
    virtual void visit(TzSoapArrayType& value) = 0;
    /// A generic or default value.
    virtual void visit(TzSoapType& value) = 0;
    /// A body.
    virtual void visit(TzSoapBody& body) = 0;
    /// A header.
    virtual void visit(TzSoapHeader& header) = 0;
    /// A message.
    virtual void visit(TzSoapMessage& message) = 0;
    virtual ~TzSoapVisitor();

protected:
    TzSoapVisitor() = default;
    TzSoapVisitor(const TzSoapVisitor&) = default;
    TzSoapVisitor& operator=(const TzSoapVisitor&) = default;

private:
    friend class TzSoapType;

    /// `TzXmlInternalError` INTERNAL_ERROR for an unknown kind of value.
    void doVisit(TzSoapType& value) override;
};
