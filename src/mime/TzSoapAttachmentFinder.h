// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapConstVisitor.h>

#include "model/TzSoapMetValues.h"

#include <vector>

/// Looks through a message, or a part of one, for references to MIME parts that have their part,
/// and for user-defined values.
///
/// Always walks all of it, each value once even if several places share it. Values wait in a
/// list instead of on the stack, so their depth does not matter. For one walk.
class TzSoapAttachmentFinder final : public TzSoapConstVisitor {
public:
    /// What the walk does with references to values.
    enum class Targets : bool { LeftOut, Visited };

    explicit TzSoapAttachmentFinder(Targets targets) noexcept : targets_(targets) {}

    /// Whether a reference to a MIME part was met.
    bool found() const noexcept { return found_; }
    /// Whether a user-defined value was met.
    bool foundUserDefined() const noexcept { return foundUserDefined_; }

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
    void enqueue(const TzSoapType& value);
    void walk();

    Targets targets_;
    bool found_ = false;
    bool foundUserDefined_ = false;
    bool walking_ = false;
    std::vector<const TzSoapType*> waiting_;
    TzSoapMetValues met_;
};
