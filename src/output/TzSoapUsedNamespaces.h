// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapType.h>
#include <tz/xml/TzXmlNamespace.h>
#include <tz/xml/TzXmlNamespaceStack.h>

#include "model/TzSoapMetValues.h"

#include <cstddef>
#include <vector>

class TzSoapElementImp;
class TzSoapFaultImp;
class TzSoapMessageImp;
class TzSoapScope;
class TzSoapTypeImp;
class TzSoapValueList;
class TzXmlAttributeSet;
class TzXmlName;

/// Finds the namespaces that a message uses and declares them on its envelope, each under the first
/// prefix that it is used with, so that the elements below need not repeat them.
///
/// Left to the elements is what cannot stand there: default namespaces, a prefix that is used for
/// two namespaces, and a prefix that an element around its use declares. Walks without recursion
/// and enters each shared value once.
class TzSoapUsedNamespaces {
public:
    /// The envelope is the innermost element of `scope` and has its own declarations.
    explicit TzSoapUsedNamespaces(TzSoapScope& scope) noexcept : scope_(scope) {}

    /// Declares what header and body of `message` use. O(content * log declarations).
    void declare(const TzSoapMessageImp& message);

private:
    /// An element whose contents are being looked at.
    struct Open {
        std::vector<const TzSoapType*> rest; ///< What it holds, last first.
        bool declares;
    };

    void useList(const TzSoapElementImp& block, const TzSoapValueList& values);
    void walk();
    void enter(const TzSoapTypeImp& value, bool isNamed = true);
    void useFault(const TzSoapFaultImp& fault);
    bool openScope(const TzXmlAttributeSet& attributes);
    void useValue(const TzSoapTypeImp& value, bool isNamed);
    bool isRespelled(const TzSoapTypeImp& value) const;
    void useType(const TzXmlName& type, const TzSoapTypeImp& value);
    void use(const TzXmlNamespace& nameSpace);

    TzSoapScope& scope_;
    const TzSoapVersion* names_ = nullptr; // of the message
    TzXmlNamespaceStack within_; // declared between the envelope and the element looked at
    std::vector<Open> open_;
    TzSoapMetValues met_;
};
