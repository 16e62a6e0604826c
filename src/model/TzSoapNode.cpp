// SPDX-License-Identifier: MIT
#include <soap/TzSoapNode.h>

#include <soap/TzSoapMessage.h>
#include <soap/TzSoapVersion.h>

namespace {

/// SOAP 1.1 publishes the role under a URI that is not below that of its envelope.
constexpr char PublishedNext[] = "http://schemas.xmlsoap.org/soap/actor/next";

} // namespace

TzSoapNode::TzSoapNode() : roles_{"", PublishedNext} {
    for (const TzSoapVersion::Version version : {TzSoapVersion::V1_1, TzSoapVersion::V1_2}) {
        const TzSoapVersion& names = TzSoapVersion::getSoapVersion(version);
        addRole(names.getSoapRole(TzSoapVersion::Next));
        addRole(names.getSoapRole(TzSoapVersion::UltimateReceiver));
    }
}

TzSoapNode::TzSoapNode(const std::vector<TzCString>& roles,
                       const std::vector<TzXmlName>& understood)
    : TzSoapNode() {
    roles_.insert(roles.begin(), roles.end());
    understood_.insert(understood.begin(), understood.end());
}

void TzSoapNode::addRole(const TzCString& uri) { roles_.insert(uri); }

void TzSoapNode::addUnderstood(const TzXmlName& entry) { understood_.insert(entry); }

bool TzSoapNode::isTargetOf(const TzSoapType& entry) const {
    return roles_.contains(entry.getActorAttribute());
}

bool TzSoapNode::understands(const TzXmlName& entry) const { return understood_.contains(entry); }

std::vector<TzXmlName> TzSoapNode::findMisunderstood(const TzSoapMessage& message) const {
    std::vector<TzXmlName> names;
    const TzSoapHeader& header = message.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        const TzSoapType& value = *entry;
        if (value.getMustUnderstand() && isTargetOf(value) && !understands(value.getName())) {
            names.push_back(value.getName());
        }
    }
    return names;
}
