// SPDX-License-Identifier: MIT
#include "InteropValues.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeBase64.h>
#include <tz/tools/TzDateTime.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace values {

namespace {

template <typename Make, typename Items>
TzSoapCompactArrayType makeArray(const char* name, const char* type, const Items& items,
                                 const Make& make) {
    TzSoapCompactArrayType array(TzXmlName(name), type, static_cast<unsigned int>(items.size()),
                                 0U);
    unsigned int position = 0;
    for (const auto& item : items) {
        array[position++] = make(item);
    }
    return array;
}

bool sameDouble(double left, double right) {
    return left == right || (std::isnan(left) && std::isnan(right));
}

/// Whether two values of a type are one value.
bool sameSimple(Base::SchemaType type, const TzSoapValueReader& sent,
                const TzSoapValueReader& received) {
    switch (type) {
    case Base::xsdBoolean:
        return sent.getBool() == received.getBool();
    case Base::xsdInt:
    case Base::xsdLong:
        return sent.getLong() == received.getLong();
    case Base::xsdDouble:
        return sameDouble(sent.getDouble(), received.getDouble());
    case Base::xsdDateTime:
        return sent.getDateTime() == received.getDateTime();
    case Base::xsdBase64Binary:
        return sent.getBytes() == received.getBytes();
    default:
        return sent.getString() == received.getString();
    }
}

std::string text(const TzSoapValueReader& value) {
    return value.isNull() ? "nil" : '"' + value.getString() + '"';
}

/// The first bytes from `at` on, in hexadecimal digits.
std::string hexFrom(const std::string& text, std::string::const_iterator at) {
    constexpr std::ptrdiff_t shown = 4;
    constexpr const char* digits = "0123456789ABCDEF";
    std::string hex;
    for (const auto end = at + std::min(text.end() - at, shown); at != end; ++at) {
        const auto byte = static_cast<unsigned char>(*at);
        hex += {digits[byte >> 4U], digits[byte & 15U]};
    }
    return hex;
}

/// Where two texts begin to differ.
std::string firstDifference(const std::string& sent, const std::string& received) {
    const auto at = std::mismatch(sent.begin(), sent.end(), received.begin(), received.end());
    return "differs at byte " + std::to_string(at.first - sent.begin()) + ": sent " +
           hexFrom(sent, at.first) + ", came back " + hexFrom(received, at.second);
}

std::string simpleDifference(const TzSoapType& sent, const TzSoapType& received,
                             TypeChanges& changes) {
    const TzSoapValueReader before(sent);
    const TzSoapValueReader after(received);
    if (before.isNull() || after.isNull()) {
        return before.isNull() == after.isNull()
                   ? std::string()
                   : "sent " + text(before) + ", came back " + text(after);
    }
    const Base::SchemaType type = before.getType();
    if (!sameSimple(type, before, after)) {
        const bool isLong = before.getString().size() > 60;
        return isLong ? firstDifference(before.getString(), after.getString())
                      : "sent " + text(before) + ", came back " + text(after);
    }
    if (after.getType() != type) {
        const std::string other(Base::schemaTypeName(after.getType()));
        changes.emplace(Base::schemaTypeName(type),
                        other.empty() ? received.getTypeAttribute() : other);
    }
    return {};
}

std::string structDifference(const TzSoapCompositeType& sent, const TzSoapCompositeType& received,
                             TypeChanges& changes) {
    if (sent.childCount() != received.childCount()) {
        return "sent " + std::to_string(sent.childCount()) + " members, came back " +
               std::to_string(received.childCount());
    }
    for (auto child = sent.childrenBegin(); child != sent.childrenEnd(); ++child) {
        const std::string found =
            difference(*child, member(received, child->getName().getLocalName()), changes);
        if (!found.empty()) {
            return child->getName().getLocalName() + ": " + found;
        }
    }
    return {};
}

std::string arrayDifference(const TzSoapCompactArrayType& sent,
                            const TzSoapCompactArrayType& received, TypeChanges& changes) {
    if (sent.entries() != received.entries()) {
        return "sent " + std::to_string(sent.entries()) + " items, came back " +
               std::to_string(received.entries());
    }
    for (unsigned int i = 0; i < sent.entries(); ++i) {
        const std::string found = difference(sent[i], received[i], changes);
        if (!found.empty()) {
            return "item " + std::to_string(i) + ": " + found;
        }
    }
    return {};
}

std::string kindsDiffer(const TzSoapType& sent, const TzSoapType& received) {
    return "sent a value of kind " + sent.getSoapTypeIdAsString() + ", came back one of kind " +
           received.getSoapTypeIdAsString();
}

} // namespace

TzSoapSimpleType makeString(const char* name, const std::string& text) {
    return {TzXmlName(name), text, Base::xsdString, true};
}

TzSoapSimpleType makeInt(const char* name, int number) {
    return {TzXmlName(name), number, Base::xsdInt, true};
}

TzSoapSimpleType makeNil(const char* name) {
    TzSoapSimpleType value = makeString(name, "");
    value.setNull(true);
    return value;
}

TzSoapSimpleType makeBytes(const char* name) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return {TzXmlName(name), TzMimeBase64::encode(bytes), Base::xsdBase64Binary, true};
}

TzSoapCompositeType makePerson(const char* name, const std::string& own, int age) {
    TzSoapCompositeType person{TzXmlName(name)};
    person.appendChild(makeString("name", own));
    person.appendChild(makeInt("age", age));
    return person;
}

TzSoapCompositeType makeNested(const char* name) {
    TzSoapCompositeType inner(TzXmlName("a"));
    inner.appendChild(makePerson("b", "Bob", -7));
    inner.appendChild(makeNil("none"));
    TzSoapCompositeType outer{TzXmlName(name)};
    outer.appendChild(inner);
    outer.appendChild(makePerson("c", "", 7));
    return outer;
}

TzSoapCompactArrayType makeInts(const char* name, const std::vector<int>& numbers) {
    return makeArray(name, "xsd:int", numbers, [](int number) { return makeInt("item", number); });
}

TzSoapCompactArrayType makeStrings(const char* name, const std::vector<std::string>& texts) {
    return makeArray(name, "xsd:string", texts,
                     [](const std::string& text) { return makeString("item", text); });
}

TzSoapCompactArrayType makePersons(const char* name, unsigned int count) {
    const std::vector<std::string> all(count, "Ann");
    return makeArray(name, "xsd:anyType", all,
                     [](const std::string& text) { return makePerson("item", text, 1); });
}

Base::SchemaType schemaTypeOf(const TzSoapType& value) {
    const auto simple = tzSoapCast<TzSoapSimpleType>(value);
    return simple ? simple->getType() : Base::xsdUnknown;
}

TzSoapCompositeType structOf(const TzSoapType& value) {
    const auto composite = tzSoapCast<TzSoapCompositeType>(TzSoapValueReader::follow(value));
    if (!composite) {
        throw std::runtime_error(value.getName().getLocalName() + " is not a struct but of kind " +
                                 value.getSoapTypeIdAsString());
    }
    return *composite;
}

TzSoapType member(const TzSoapCompositeType& parent, const std::string& name) {
    const auto found =
        std::find_if(parent.childrenBegin(), parent.childrenEnd(), [&](const TzSoapType& child) {
            return child.getName().getLocalName() == name;
        });
    if (found == parent.childrenEnd()) {
        throw std::runtime_error("no " + name + " came back");
    }
    return *found;
}

std::string findDeep(const TzSoapType& value, const std::string& name) {
    const TzSoapType target = TzSoapValueReader::follow(value);
    if (const auto composite = tzSoapCast<TzSoapCompositeType>(target)) {
        for (auto child = composite->childrenBegin(); child != composite->childrenEnd(); ++child) {
            std::string found = findDeep(*child, name);
            if (!found.empty()) {
                return found;
            }
        }
        return {};
    }
    return value.getName().getLocalName() == name ? TzSoapValueReader(value).getString()
                                                  : std::string();
}

bool sameValue(const TzSoapType& left, const TzSoapType& right) {
    // What one handle changes, the other sees if they share a value.
    TzSoapType first = TzSoapValueReader::follow(left);
    const TzSoapType second = TzSoapValueReader::follow(right);
    const TzXmlName mark("mark-of-the-first");
    first.addAttribute(mark, "1");
    const bool same = second.hasAttribute(mark);
    first.removeAttribute(mark);
    return same;
}

std::string difference(const TzSoapType& sent, const TzSoapType& received, TypeChanges& changes) {
    const TzSoapType target = TzSoapValueReader::follow(received);
    if (const auto before = tzSoapCast<TzSoapCompositeType>(sent)) {
        const auto after = tzSoapCast<TzSoapCompositeType>(target);
        return after ? structDifference(*before, *after, changes) : kindsDiffer(sent, target);
    }
    if (const auto before = tzSoapCast<TzSoapCompactArrayType>(sent)) {
        const auto after = tzSoapCast<TzSoapCompactArrayType>(target);
        return after ? arrayDifference(*before, *after, changes) : kindsDiffer(sent, target);
    }
    return simpleDifference(sent, target, changes);
}

std::string reasonOf(const TzSoapTransportError& failure) {
    return failure.asString().substr(failure.getUrl().size() + 2);
}

TzSoapMessage messageIn(const TzSoapHttpResult& result) {
    if (const TzSoapTransportError* const failure = result.findFailure()) {
        throw std::runtime_error(reasonOf(*failure));
    }
    const TzSoapFaultError* const fault = result.findFault();
    return fault == nullptr ? result.getAnswer() : fault->getMessage();
}

std::string onOneLine(std::string text) {
    constexpr std::size_t longest = 300;
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character < ' ' && character >= 0; },
        ' ');
    return text.substr(0, longest);
}

} // namespace values
