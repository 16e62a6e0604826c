// SPDX-License-Identifier: MIT
#include "Workloads.h"

#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapSparseArrayType.h>

#include <string_view>
#include <utility>
#include <vector>

namespace {

using Base = TzSoapContentBase;

const TzXmlNamespace& stock() {
    static const TzXmlNamespace instance("m", "urn:example:stock");
    return instance;
}

TzSoapMessage emptyMessage() {
    TzSoapMessage message(TzSoapVersion::V1_1);
    message.setProlog(TzXmlProlog());
    message.addNamespaceAttribute(TzXmlNamespace::getXsd());
    message.addNamespaceAttribute(TzXmlNamespace::getXsi());
    message.addNamespaceAttribute(stock());
    message.setEncodingStyle(message.getSoapVersion().getSoapEncodingStyle());
    return message;
}

TzSoapMessage messageWith(const TzSoapType& entry) {
    TzSoapMessage message = emptyMessage();
    message.getSoapBody().appendEntry(entry);
    return message;
}

TzSoapCompositeType structOf(int number) {
    TzSoapCompositeType item{TzXmlName("item")};
    item.appendChild(
        TzSoapSimpleType("symbol", "SYM" + std::to_string(number), Base::xsdString, true));
    item.appendChild(TzSoapSimpleType("amount", number, Base::xsdInt, true));
    item.appendChild(TzSoapSimpleType("price", 10.25 + number % 100, Base::xsdDouble, true));
    item.appendChild(TzSoapSimpleType("urgent", number % 2 == 0, Base::xsdBoolean, true));
    item.appendChild(TzSoapSimpleType("placed", "2026-11-21T12:34:56Z", Base::xsdDateTime, true));
    return item;
}

TzSoapSimpleType number(int value) { return {TzXmlName("i"), value, Base::xsdInt, true}; }

/// A message with one string of 16 MiB, in which every `distance`-th character is written as a
/// reference.
TzSoapMessage textMessage(std::size_t distance) {
    constexpr std::size_t Size = std::size_t{16} << 20;
    constexpr std::string_view Plain = "The quick brown fox jumps over the lazy dog ";
    constexpr std::string_view Referred = "&<>";
    std::string text;
    text.reserve(Size);
    for (std::size_t at = 0; at < Size; ++at) {
        text += at % distance == distance - 1 ? Referred[at / distance % Referred.size()]
                                              : Plain[at % Plain.size()];
    }
    return messageWith(
        TzSoapSimpleType(TzXmlName("text", stock()), std::move(text), Base::xsdString, true));
}

} // namespace

TzSoapMessage workloads::request() {
    TzSoapMessage message = emptyMessage();
    TzSoapSimpleType transaction(TzXmlName("transaction", stock()), 5, Base::xsdInt, true);
    message.getSoapHeader().appendHeaderEntry(transaction, true, TzCString("urn:example:gateway"));
    TzSoapCompositeType order = structOf(17);
    order.setName(TzXmlName("order", stock()));
    message.getSoapBody().appendEntry(order);
    return message;
}

TzSoapMessage workloads::structs(int structs) {
    TzSoapCompositeType orders{TzXmlName("orders", stock())};
    for (int i = 0; i < structs; ++i) {
        orders.appendChild(structOf(i));
    }
    return messageWith(orders);
}

TzSoapMessage workloads::intArray(int items) {
    TzSoapCompactArrayType array(TzXmlName("numbers", stock()), "xsd:int",
                                 static_cast<unsigned int>(items), 0u);
    for (int i = 0; i < items; ++i) {
        array(static_cast<unsigned int>(i)) = number(i);
    }
    return messageWith(array);
}

TzSoapMessage workloads::structArray(int structs) {
    TzSoapCompactArrayType array(TzXmlName("orders", stock()), "m:order",
                                 static_cast<unsigned int>(structs), 0u);
    for (int i = 0; i < structs; ++i) {
        array(static_cast<unsigned int>(i)) = structOf(i);
    }
    return messageWith(array);
}

TzSoapMessage workloads::sparseArray(int members) {
    TzSoapSparseArrayType array(TzXmlName("numbers", stock()), "xsd:int",
                                static_cast<unsigned int>(members) * 3);
    for (int i = 0; i < members; ++i) {
        array(static_cast<unsigned int>(i) * 3) = number(i);
    }
    return messageWith(array);
}

TzSoapMessage workloads::references(int references) {
    std::vector<TzSoapCompositeType> shared;
    for (int i = 0; i < references / 20; ++i) {
        shared.push_back(structOf(i));
        shared.back().setIdAttribute("id" + std::to_string(i));
    }
    TzSoapCompositeType orders{TzXmlName("orders", stock())};
    for (int i = 0; i < references; ++i) {
        orders.appendChild(TzSoapReferenceType(
            TzXmlName("order"), shared[static_cast<std::size_t>(i) % shared.size()]));
    }
    return messageWith(orders);
}

TzSoapMessage workloads::referenceText() { return textMessage(60); }

TzSoapMessage workloads::escapedText() { return textMessage(20); }

std::string workloads::textOf(const TzSoapMessage& message) { return message.asString(); }
