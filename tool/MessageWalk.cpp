// SPDX-License-Identifier: MIT
#include "MessageWalk.h"

#include "PartFacts.h"

#include <soap/TzSoap12RecVersion.h>
#include <soap/TzSoapArrayTypeImp.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapFault.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMisunderstoodType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>
#include <soap/TzSoapUserDefinedType.h>
#include <tz/mime/TzMimeMultipart.h>
#include <tz/xml/TzXmlUtils.h>

#include <map>
#include <utility>

namespace {

/// What every element has, values or not.
template <typename Handle> Element describeElement(std::string_view kind, const Handle& handle) {
    Element element;
    element.kind = kind;
    element.name = handle.getName();
    if (handle.hasEncodingStyleAttribute()) {
        element.encodingStyle = handle.getEncodingStyleAttribute();
    }
    element.attributes = {handle.attributesBegin(), handle.attributesEnd()};
    return element;
}

/// The number of the part that a reference was resolved to, `TzMimePart::NotFound` for one that the
/// package does not hold.
std::size_t numberOf(const TzMimePart& part, const TzMimeMultipart& package) {
    if (const auto id = part.getContentId()) {
        return package.findPartById(*id);
    }
    const auto location = part.getContentLocation();
    return location ? package.findPartByLocation(*location) : TzMimePart::NotFound;
}

/// What a version of SOAP is called.
std::string versionText(TzSoapVersion::Version version) {
    static const std::map<TzSoapVersion::Version, std::string> texts = {
        {TzSoapVersion::V1_1, "1.1"},
        {TzSoapVersion::V1_2, "1.2"},
        {TzSoapVersion::V1_2Rec, "1.2 (2003/05)"}};
    return texts.at(version);
}

/// The text of the reference attribute, whose name differs from version to version.
std::string referenceText(const TzSoapReferenceType& value) {
    for (const auto version : {TzSoapVersion::V1_2Rec, TzSoapVersion::V1_2, TzSoapVersion::V1_1}) {
        const TzXmlName& name = TzSoapVersion::getSoapAttributeName(TzSoapVersion::Ref, version);
        const auto* const found = value.findAttribute(name);
        if (found != value.attributesEnd()) {
            return found->getValue();
        }
    }
    return {};
}

/// The index of a position, which may be beyond the shape: more may have been sent than declared.
std::vector<unsigned int> indexOf(unsigned int position, const std::vector<unsigned int>& bounds) {
    std::vector<unsigned int> index(bounds.size());
    for (std::size_t axis = bounds.size() - 1; axis > 0; --axis) {
        index[axis] = position % bounds[axis];
        position /= bounds[axis];
    }
    index.front() = position;
    return index;
}

/// Whether a header entry asks to be passed on, nothing when it does not say.
std::optional<bool> relayOf(const TzSoapType& entry) {
    const bool isStated =
        entry.findAttribute(TzSoap12RecVersion::getRelayName()) != entry.attributesEnd();
    return isStated ? std::optional(TzSoap12RecVersion::isRelayed(entry)) : std::nullopt;
}

/// All reasons of a fault, an empty one without any.
std::vector<TzSoapReason> reasonsOf(const TzSoapFault& fault) {
    return fault.getReasons().empty() ? std::vector<TzSoapReason>(1) : fault.getReasons();
}

} // namespace

void MessageWalk::report(const Element& element) {
    sink_.begin(element);
    sink_.end();
}

Element MessageWalk::describe(const TzSoapType& value) {
    Element element = describeElement(value.getSoapTypeIdAsString(), value);
    element.role = std::exchange(role_, {});
    element.type = value.getType();
    element.mustUnderstand = value.getMustUnderstandAttribute();
    element.actor = value.getActorAttribute();
    if (std::exchange(isHeaderEntry_, false)) {
        element.relay = relayOf(value);
    }
    element.root = value.getRootAttribute();
    element.id = value.getIdAttribute();
    element.nil = value.isNull();
    element.position = std::exchange(position_, {});
    return element;
}

void MessageWalk::visit(const TzSoapMessage& message) {
    message_ = &message;
    sink_.beginMessage(versionText(message.getVersion()));
    Element envelope = describeElement("Envelope", message);
    envelope.role = "envelope";
    report(envelope);
    if (message.getSoapHeader().entryCount() != 0) {
        message.getSoapHeader().acceptVisitor(*this);
    }
    message.getSoapBody().acceptVisitor(*this);
    const TzMimeMultipart& package = message.getMimeMultipart();
    const std::size_t root = package.findRootPart();
    for (std::size_t number = 0; number < package.getPartCount(); ++number) {
        if (number != root) {
            sink_.attachment(number, PartFacts::of(package.getPart(number)));
        }
    }
    sink_.endMessage();
}

template <typename Container>
void MessageWalk::visitEntries(std::string_view kind, std::string_view role,
                               const Container& container) {
    Element element = describeElement(kind, container);
    element.role = role;
    element.children = "entries";
    sink_.begin(element);
    if constexpr (std::is_same_v<Container, TzSoapBody>) {
        if (container.hasSoapFault()) {
            container.getSoapFault().acceptVisitor(*this);
        }
    }
    for (auto entry = container.entriesBegin(); entry != container.entriesEnd(); ++entry) {
        isHeaderEntry_ = std::is_same_v<Container, TzSoapHeader>;
        entry->acceptVisitor(*this);
    }
    sink_.end();
}

void MessageWalk::visit(const TzSoapHeader& header) { visitEntries("Header", "header", header); }

void MessageWalk::visit(const TzSoapBody& body) { visitEntries("Body", "body", body); }

void MessageWalk::visit(const TzSoapFault& fault) {
    Element element;
    element.kind = "Fault";
    element.role = "fault";
    element.name = fault.getName();
    FaultFacts& facts = element.fault.emplace(FaultFacts{fault.getCodeValue(),
                                                         {},
                                                         reasonsOf(fault),
                                                         fault.getNode(),
                                                         fault.getRole(),
                                                         fault.getDetailText()});
    for (unsigned int i = 0; i < fault.getSubcodeCount(); ++i) {
        facts.subcodes.push_back(fault.getSubcodeValue(i));
    }
    sink_.begin(element);
    if (fault.getDetails().childCount() != 0) {
        role_ = "detail";
        fault.getDetails().acceptVisitor(*this);
    }
    sink_.end();
}

void MessageWalk::visit(const TzSoapSimpleType& value) {
    Element element = describe(value);
    element.text = value.getString();
    report(element);
}

void MessageWalk::visit(const TzSoapUserDefinedType& value) {
    Element element = describe(value);
    element.text = value.getValue();
    report(element);
}

void MessageWalk::visit(const TzSoapCompositeType& value) {
    Element element = describe(value);
    element.children = "children";
    sink_.begin(element);
    for (auto child = value.childrenBegin(); child != value.childrenEnd(); ++child) {
        reportText(value.getTextBefore(child));
        child->acceptVisitor(*this);
    }
    reportText(value.getTextBefore(value.childrenEnd()));
    sink_.end();
}

void MessageWalk::reportText(const TzCString& text) {
    if (!TzXmlUtils::trim(text).empty()) {
        Element element;
        element.kind = "Text";
        element.text = text;
        report(element);
    }
}

void MessageWalk::visit(const TzSoapReferenceType& value) {
    Element element = describe(value);
    ReferenceFacts& facts = element.reference.emplace();
    facts.text = referenceText(value);
    if (value.hasReference() && value.isMimeReference()) {
        const std::size_t number = numberOf(value.getMimeReference(), message_->getMimeMultipart());
        if (number != TzMimePart::NotFound) {
            facts.part = number;
        }
        facts.size = value.getMimeReference().getBodyView().size();
    } else if (value.hasReference()) {
        facts.kind = value.getSoapReference().getSoapTypeIdAsString();
        facts.name = value.getSoapReference().getName();
    }
    report(element);
}

Element MessageWalk::describeArray(const TzSoapArrayType& array, std::size_t items) {
    Element element = describe(array);
    element.children = "items";
    element.array = ArrayFacts{
        array.getElementType(), array.getBounds(), array.getOffsetIndex(), array.isSparse(), items,
        array.getArrayType()};
    return element;
}

void MessageWalk::visitItem(const TzSoapType& item, std::vector<unsigned int> position) {
    position_ = std::move(position);
    item.acceptVisitor(*this);
}

void MessageWalk::visit(const TzSoapSparseArrayType& value) {
    sink_.begin(describeArray(value, value.entries()));
    for (const auto& [index, item] : value) {
        visitItem(item, index);
    }
    sink_.end();
}

void MessageWalk::visit(const TzSoapCompactArrayType& value) {
    const std::vector<unsigned int> positions = value.assignedPositions();
    sink_.begin(describeArray(value, positions.size()));
    for (const unsigned int position : positions) {
        visitItem(value(position), indexOf(position, value.getBounds()));
    }
    sink_.end();
}

void MessageWalk::visit(const TzSoapArrayType& value) {
    report(describeArray(value, value.entries()));
}

void MessageWalk::visit(const TzSoapMisunderstoodType& value) {
    Element element = describe(value);
    element.misunderstood = value.getQualifiedName();
    report(element);
}

void MessageWalk::visit(const TzSoapType& value) { report(describe(value)); }
