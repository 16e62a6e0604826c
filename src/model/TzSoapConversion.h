// SPDX-License-Identifier: MIT
#pragma once

#include "model/TzSoapVersionTerms.h"

#include <soap/TzSoapType.h>
#include <soap/TzSoapVisitor.h>

#include <string_view>
#include <unordered_set>
#include <vector>

class TzSoapAttributeSet;
class TzSoapElementImp;
class TzSoapValueList;

/// One rewriting of one message for another version.
///
/// Values wait in a list instead of on the stack, so their depth does not matter; those with an id
/// are rewritten once however many references refer to them.
class TzSoapConversion final : private TzSoapVisitor {
public:
    /// Of `message`, which is of another version, to `target`.
    TzSoapConversion(TzSoapMessage& message, const TzSoapVersion& target);

    /// Rewrites the message; what could not be carried over.
    std::vector<TzCString> run();

private:
    void visit(TzSoapMisunderstoodType& value) override;
    void visit(TzSoapReferenceType& value) override;
    void visit(TzSoapUserDefinedType& value) override;
    void visit(TzSoapSimpleType& value) override;
    void visit(TzSoapFault& fault) override;
    void visit(TzSoapCompositeType& value) override;
    void visit(TzSoapSparseArrayType& value) override;
    void visit(TzSoapCompactArrayType& value) override;
    void visit(TzSoapArrayType& value) override;
    void visit(TzSoapType& value) override;
    void visit(TzSoapBody& body) override;
    void visit(TzSoapHeader& header) override;
    void visit(TzSoapMessage& message) override;

    void lose(const TzCString& what, std::string_view how);
    void wait(const TzSoapType& value);
    void walk();
    TzCString takeStyle(TzSoapElementImp& container, const TzCString& around);
    void convertEntry(TzSoapType& entry, const TzCString& style);

    void convertElement(TzSoapElementImp& element);
    void convertNames(TzSoapElementImp& element);
    void convertAttributes(TzSoapElementImp& element);
    void convertAttribute(const TzXmlAttribute& attribute, const TzXmlName& element,
                          TzSoapAttributeSet& converted);
    TzCString convertValue(TzSoapVersion::SoapAttribute attribute, const TzCString& value,
                           const TzXmlName& element);
    TzCString convertRole(const TzCString& role, const TzXmlName& element);
    void convertArray(TzSoapArrayType& array);
    void choosePrefixes(const TzCString& soapPrefix);

    TzSoapMessage& message_;
    TzSoapVersionTerms terms_;
    TzCString style_; // stated by the envelope
    std::vector<TzSoapType> waiting_;
    std::unordered_set<const void*> converted_; // bodies of values with an id
    std::vector<TzCString> losses_;
};
