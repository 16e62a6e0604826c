// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapExport.h>
#include <tz/tools/TzCString.h>
#include <tz/xml/TzXmlName.h>

#include <set>
#include <vector>

class TzSoapHeader;
class TzSoapMessage;
class TzSoapType;

/// The ultimate receiver of messages: which header entries are meant for it, and which of those it
/// understands.
///
/// A plain value. Constant members may be called on several threads at once.
class TZSOAP_API TzSoapNode {
public:
    /// A receiver that understands no header entry. It acts for entries without actor (role), for
    /// those to the next node, also under the URI "http://schemas.xmlsoap.org/soap/actor/next" that
    /// SOAP 1.1 publishes, and for those to the ultimate receiver of SOAP 1.2.
    TzSoapNode();
    /// A receiver with further roles, as if added by `addRole`, that understands these entries.
    TzSoapNode(const std::vector<TzCString>& roles, const std::vector<TzXmlName>& understood);

    /// Acts also for entries whose actor (role) is `uri`.
    void addRole(const TzCString& uri);
    /// Understands entries named `entry`.
    void addUnderstood(const TzXmlName& entry);

    /// Whether the header entry is meant for this receiver. O(attributes + log roles).
    bool isTargetOf(const TzSoapType& entry) const;
    /// Whether entries of that name are understood. O(log names).
    bool understands(const TzXmlName& entry) const;
    /// The names of the header entries that are meant for this receiver, must be understood and are
    /// not, in document order. A message with any must not be processed: its answer is
    /// `TzSoapFaultMessage::makeMustUnderstand`. O(entries and their attributes).
    ///
    /// What an entry of an envelope says whose namespace was accepted though it is spelt a little
    /// differently, such as that of SOAP 1.1 without the last slash, is seen as well, here and in
    /// `isTargetOf`; the entry's own `getMustUnderstand` and `getActorAttribute` do not know of it.
    std::vector<TzXmlName> findMisunderstood(const TzSoapMessage& message) const;
    /// Makes `header` one that an answer can have: keeps the entries that are meant for this
    /// receiver and understood, without their actor (role) and mustUnderstand, and removes the
    /// others. O(entries and their attributes).
    void retainUnderstood(TzSoapHeader& header) const;

private:
    std::set<TzCString> roles_;
    std::set<TzXmlName> understood_;
};
