// SPDX-License-Identifier: MIT
#include <soap/TzSoapWsAddressing.h>

#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHeader.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapNode.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/xml/TzXmlBadArgError.h>
#include <tz/xml/TzXmlUtils.h>

#include "TzSoapWsCrypto.h"
#include "TzSoapWsFaults.h"
#include "TzSoapWsNames.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

using TzSoapWsNames::wsa;

namespace {

using Codes = std::vector<TzXmlName>;

const TzXmlName& isReferenceParameter() {
    static const TzXmlName name = wsa("IsReferenceParameter");
    return name;
}

bool isTrue(std::string_view text) noexcept {
    const std::string_view trimmed = TzXmlUtils::trim(text);
    return trimmed == "true" || trimmed == "1";
}

bool isParameter(const TzSoapType& entry) {
    const TzXmlAttribute* const mark = entry.findAttribute(isReferenceParameter());
    return mark != entry.attributesEnd() && isTrue(mark->getValue());
}

bool isAddressing(const TzSoapType& entry) {
    return entry.getName().getUri() == TzSoapWsAddressing::Namespace;
}

TzSoapSimpleType textEntry(const char* localName, const TzCString& text) {
    return {wsa(localName), text, TzSoapType::xsdUnknown, false};
}

/// The text of `value`, the white space around it left out; "" unless it is a simple value.
TzCString uriIn(const TzSoapType& value) {
    // References are not followed: many of them to one long text would multiply it.
    const auto simple = tzSoapCast<TzSoapSimpleType>(value);
    return simple ? TzCString(TzXmlUtils::trim(simple->getString())) : TzCString();
}

/// Takes the properties of one message, entry by entry.
class Reader {
public:
    Reader(const TzSoapMessage& message, TzSoapWsAddressing& properties)
        : version_(message.getVersion()), properties_(properties) {}

    void take(const TzSoapType& entry) {
        const TzCString& name = entry.getName().getLocalName();
        if (name == "To") {
            once(toSeen_, entry);
            properties_.to = uriIn(entry);
        } else if (name == "Action") {
            once(actionSeen_, entry);
            properties_.action = uriIn(entry);
        } else if (name == "MessageID") {
            once(idSeen_, entry);
            properties_.messageId = uriIn(entry);
        } else if (name == "RelatesTo") {
            properties_.relatesTo.push_back(relationIn(entry));
        } else if (name == "From") {
            takeEndpoint(properties_.from, entry);
        } else if (name == "ReplyTo") {
            takeEndpoint(properties_.replyTo, entry);
        } else if (name == "FaultTo") {
            takeEndpoint(properties_.faultTo, entry);
        }
    }
    void finish() const {
        if (properties_.action.empty()) {
            throw TzSoapWsFaults::make(version_, {wsa("MessageAddressingHeaderRequired")},
                                       "A required header representing a Message Addressing "
                                       "Property is not present: wsa:Action");
        }
    }

private:
    static TzSoapWsAddressing::Relation relationIn(const TzSoapType& entry) {
        TzSoapWsAddressing::Relation relation{uriIn(entry)};
        const TzXmlAttribute* const type = entry.findAttribute(TzXmlName("RelationshipType"));
        if (type != entry.attributesEnd()) {
            relation.type = TzXmlUtils::trim(type->getValue());
        }
        return relation;
    }
    void once(bool& seen, const TzSoapType& entry) const {
        if (std::exchange(seen, true)) {
            invalid("InvalidCardinality", entry);
        }
    }
    void takeEndpoint(std::optional<TzSoapWsEndpoint>& place, const TzSoapType& entry) const {
        if (place) {
            invalid("InvalidCardinality", entry);
        }
        const auto address = entry.findChildValue("Address", TzSoapWsAddressing::Namespace);
        if (!address) {
            invalid("MissingAddressInEPR", entry);
        }
        place.emplace();
        place->address = uriIn(*address);
        const auto parameters =
            entry.findChildValue("ReferenceParameters", TzSoapWsAddressing::Namespace);
        const auto held = parameters ? tzSoapCast<TzSoapCompositeType>(*parameters) : std::nullopt;
        if (held) {
            place->referenceParameters.assign(held->childrenBegin(), held->childrenEnd());
        }
    }
    [[noreturn]] void invalid(const char* subcode, const TzSoapType& entry) const {
        throw TzSoapWsFaults::make(version_, {wsa("InvalidAddressingHeader"), wsa(subcode)},
                                   "A header representing a Message Addressing Property is not "
                                   "valid and the message cannot be processed: wsa:" +
                                       entry.getName().getLocalName());
    }

    TzSoapVersion::Version version_;
    TzSoapWsAddressing& properties_;
    bool toSeen_ = false;
    bool actionSeen_ = false;
    bool idSeen_ = false;
};

TzSoapCompositeType endpointEntry(const char* localName, const TzSoapWsEndpoint& endpoint) {
    TzSoapCompositeType entry(wsa(localName));
    entry.appendChild(textEntry("Address", endpoint.address));
    if (!endpoint.referenceParameters.empty()) {
        TzSoapCompositeType parameters(wsa("ReferenceParameters"));
        for (const TzSoapType& parameter : endpoint.referenceParameters) {
            parameters.appendChild(parameter);
        }
        entry.appendChild(parameters);
    }
    return entry;
}

void removeEntries(TzSoapHeader& header) {
    for (auto entry = header.entriesBegin(); entry != header.entriesEnd();) {
        entry = isAddressing(*entry) || isParameter(*entry) ? header.removeHeaderEntry(entry)
                                                            : std::next(entry);
    }
}

/// Adds the entries of one message.
class Writer {
public:
    Writer(TzSoapHeader& header, bool mustUnderstand)
        : header_(header), mustUnderstand_(mustUnderstand) {}

    void add(TzSoapType entry) const {
        header_.appendHeaderEntry(std::move(entry), mustUnderstand_);
    }
    void add(const char* localName, const std::optional<TzSoapWsEndpoint>& endpoint) const {
        if (endpoint) {
            add(endpointEntry(localName, *endpoint));
        }
    }
    void add(const TzSoapWsAddressing::Relation& relation) const {
        TzSoapSimpleType entry = textEntry("RelatesTo", relation.messageId);
        if (relation.type != TzSoapWsAddressing::Relation::Reply) {
            entry.addAttribute(TzXmlName("RelationshipType"), relation.type);
        }
        add(entry);
    }

private:
    TzSoapHeader& header_;
    bool mustUnderstand_;
};

/// What a message to `endpoint` begins with.
TzSoapWsAddressing toward(const TzSoapWsEndpoint& endpoint, const TzSoapWsAddressing& request,
                          const TzCString& action) {
    TzSoapWsAddressing answer;
    answer.to = endpoint.address;
    answer.action = action;
    answer.referenceParameters = endpoint.referenceParameters;
    if (!request.messageId.empty()) {
        answer.relatesTo.push_back({request.messageId});
    }
    return answer;
}

TzCString withoutQuotes(std::string_view action) {
    const bool quoted = action.size() > 1 && action.front() == '"' && action.back() == '"';
    return TzCString(quoted ? action.substr(1, action.size() - 2) : action);
}

} // namespace

bool TzSoapWsAddressing::isUsed(const TzSoapMessage& message, const TzSoapNode& node) {
    const TzSoapHeader& header = message.getSoapHeader();
    return std::any_of(header.begin(), header.end(), [&node](const TzSoapType& entry) {
        return isAddressing(entry) && node.isTargetOf(entry);
    });
}

TzSoapWsAddressing TzSoapWsAddressing::read(const TzSoapMessage& message, const TzSoapNode& node) {
    TzSoapWsAddressing properties;
    Reader reader(message, properties);
    for (const TzSoapType& entry : message.getSoapHeader()) {
        if (!node.isTargetOf(entry)) {
            continue;
        }
        if (isAddressing(entry)) {
            reader.take(entry);
        } else if (isParameter(entry)) {
            properties.referenceParameters.push_back(entry);
        }
    }
    reader.finish();
    return properties;
}

TzSoapWsAddressing TzSoapWsAddressing::read(const TzSoapMessage& message) {
    return read(message, TzSoapNode());
}

const std::vector<TzXmlName>& TzSoapWsAddressing::entryNames() {
    static const std::vector<TzXmlName> names = {wsa("To"),        wsa("Action"), wsa("MessageID"),
                                                 wsa("RelatesTo"), wsa("From"),   wsa("ReplyTo"),
                                                 wsa("FaultTo")};
    return names;
}

void TzSoapWsAddressing::write(TzSoapMessage& message, bool mustUnderstand) const {
    if (action.empty()) {
        throw TzXmlBadArgError(TzMessage("a message with WS-Addressing needs an action"));
    }
    TzSoapHeader& header = message.getSoapHeader();
    removeEntries(header);
    const Writer writer(header, mustUnderstand);
    writer.add(textEntry("To", to));
    writer.add(textEntry("Action", action));
    if (!messageId.empty()) {
        writer.add(textEntry("MessageID", messageId));
    }
    for (const Relation& relation : relatesTo) {
        writer.add(relation);
    }
    writer.add("From", from);
    writer.add("ReplyTo", replyTo);
    writer.add("FaultTo", faultTo);
    for (const TzSoapType& parameter : referenceParameters) {
        // Others may hold the value, too.
        TzSoapType entry = parameter.copy();
        if (!isParameter(entry)) {
            entry.addAttribute(isReferenceParameter(), "true");
        }
        header.appendHeaderEntry(std::move(entry), false);
    }
}

TzSoapWsAddressing TzSoapWsAddressing::answer(const TzCString& answerAction) const {
    return toward(replyTo.value_or(TzSoapWsEndpoint()), *this, answerAction);
}

TzSoapWsAddressing TzSoapWsAddressing::faultAnswer(const TzCString& faultAction) const {
    return toward(faultTo ? *faultTo : replyTo.value_or(TzSoapWsEndpoint()), *this, faultAction);
}

void TzSoapWsAddressing::checkAction(TzSoapVersion::Version version,
                                     const TzCString& httpAction) const {
    const TzCString stated = withoutQuotes(TzXmlUtils::trim(httpAction));
    if (!stated.empty() && stated != action) {
        throw TzSoapWsFaults::make(version, {wsa("ActionMismatch")},
                                   "The action of the message is not the SOAP action that it was "
                                   "sent with");
    }
}

TzCString TzSoapWsAddressing::makeMessageId() {
    TzCString bytes = TzSoapWsCrypto::randomBytes(16);
    bytes[6] = static_cast<char>((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = static_cast<char>((bytes[8] & 0x3F) | 0x80); // variant of the RFC
    TzCString id = "urn:uuid:";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        constexpr char Digits[] = "0123456789abcdef";
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            id += '-';
        }
        id += {Digits[byte >> 4U], Digits[byte & 0xFU]};
    }
    return id;
}
