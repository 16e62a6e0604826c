// SPDX-License-Identifier: MIT
#include <soap/TzSoapNode.h>

#include <soap/TzSoapAttributeSet.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapUtils.h>
#include <soap/TzSoapVersion.h>

#include "model/TzSoapVersionTable.h"

#include <algorithm>

namespace {

/// Whether `name` is what a version calls the attribute, in a namespace that stands for that of the
/// version but is spelt differently: an equal spelling was understood while reading.
bool isSpeltDifferently(const TzXmlName& name, TzSoapVersion::SoapAttribute attribute) {
    TzSoapVersion::SoapAttribute found{};
    TzSoapVersion::Version version{};
    if (!TzSoapVersion::isSoapAttribute(name, found, version) || found != attribute) {
        return false;
    }
    const TzXmlName& usual = TzSoapVersion::getSoapAttributeName(attribute, version);
    return usual.getLocalName() == name.getLocalName() && !(usual == name) &&
           TzSoapVersion::isSoapEnv(name.getUri());
}

/// The value of such an attribute, null without one.
const TzCString* findSpeltDifferently(const TzSoapType& entry,
                                      TzSoapVersion::SoapAttribute attribute) {
    const auto* const end = entry.attributesEnd();
    const auto* const found =
        std::find_if(entry.attributesBegin(), end, [attribute](const TzXmlAttribute& one) {
            return isSpeltDifferently(one.getName(), attribute);
        });
    return found == end ? nullptr : &found->getValue();
}

bool mustBeUnderstood(const TzSoapType& entry) {
    if (entry.getMustUnderstand()) {
        return true;
    }
    const TzCString* const text = findSpeltDifferently(entry, TzSoapVersion::MustUnderstand);
    return text != nullptr &&
           (*text == TzSoapUtils::TrueTag || *text == TzSoapAttributeSet::getTrueAttributeValue());
}

} // namespace

TzSoapNode::TzSoapNode() : roles_{"", TzSoapVersionTable::PublishedNextRole} {
    for (const TzSoapVersion::Version version : TzSoapVersionTable::Known) {
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
    const TzCString actor = entry.getActorAttribute();
    const TzCString* const other =
        actor.empty() ? findSpeltDifferently(entry, TzSoapVersion::Actor) : nullptr;
    return roles_.contains(other == nullptr ? actor : *other);
}

bool TzSoapNode::understands(const TzXmlName& entry) const { return understood_.contains(entry); }

std::vector<TzXmlName> TzSoapNode::findMisunderstood(const TzSoapMessage& message) const {
    std::vector<TzXmlName> names;
    const TzSoapHeader& header = message.getSoapHeader();
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd(); ++entry) {
        const TzSoapType& value = *entry;
        if (mustBeUnderstood(value) && isTargetOf(value) && !understands(value.getName())) {
            names.push_back(value.getName());
        }
    }
    return names;
}

void TzSoapNode::retainUnderstood(TzSoapHeader& header) const {
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd();) {
        if (isTargetOf(*entry) && understands(entry->getName())) {
            entry->removeActorAttribute();
            entry->removeMustUnderstandAttribute();
            ++entry;
        } else {
            entry = header.removeHeaderEntry(entry);
        }
    }
}
