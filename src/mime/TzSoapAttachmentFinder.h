// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapConstVisitor.h>

/// Looks through a message, or a part of one, for a reference to a MIME part. Always walks the
/// whole of it; references to values are not followed.
class TzSoapAttachmentFinder final : public TzSoapConstVisitor {
public:
    /// Whether a reference to a MIME part was met.
    bool found() const noexcept { return found_; }

    void visit(const TzSoapMisunderstoodType& value) override;
    void visit(const TzSoapReferenceType& value) override;
    void visit(const TzSoapUserDefinedType& value) override;
    void visit(const TzSoapSimpleType& value) override;
    void visit(const TzSoapFault& fault) override;
    void visit(const TzSoapCompositeType& value) override;
    void visit(const TzSoapSparseArrayType& value) override;
    void visit(const TzSoapCompactArrayType& value) override;
    void visit(const TzSoapArrayType& value) override;
    void visit(const TzSoapType& value) override;
    void visit(const TzSoapBody& body) override;
    void visit(const TzSoapHeader& header) override;
    void visit(const TzSoapMessage& message) override;

private:
    bool found_ = false;
};
