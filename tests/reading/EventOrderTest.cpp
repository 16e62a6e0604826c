// SPDX-License-Identifier: MIT
#include <soap/TzSoapArrayTypeHandler.h>
#include <soap/TzSoapBodyImp.h>
#include <soap/TzSoapCatalog.h>
#include <soap/TzSoapCompactArrayImp.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapCompositeTypeImp.h>
#include <soap/TzSoapFaultImp.h>
#include <soap/TzSoapHeaderImp.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapMessageImp.h>
#include <soap/TzSoapParseContext.h>
#include <soap/TzSoapReferenceToSoapTypeImp.h>
#include <soap/TzSoapUnknownTypeHandler.h>
#include <soap/TzSoapUserDefinedTypeHandler.h>
#include <tz/xml/TzXmlAttributeSet.h>
#include <tz/xml/TzXmlInternalError.h>
#include <tz/xml/TzXmlParseError.h>
#include <tz/xml/TzXmlSAXParser.h>

#include "model/TzSoapAccess.h"
#include "reading/TzSoapReadingState.h"
#include "support/CataloguedError.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

// Events that no parser sends: to handlers before their element, or after its end.

namespace {

using V = TzSoapVersion;

const TzXmlName anElement("a");
const TzXmlAttributeSet noAttributes;

/// `event` is refused by the handler whose source is `unit`.
void expectRefused(const std::string& unit, int line, const std::function<void()>& event) {
    expectCatalogued<TzXmlInternalError>(event, tzsoap_INTERNAL_ERROR()->id,
                                         "[INTERNAL_ERROR][Internal Logic Error in file \"..\\" +
                                             unit + "\", line \"" + std::to_string(line) + "\" ]");
}

/// Start and end of an element are refused by `handler`.
void expectBothRefused(TzSoapContentHandler& handler, const std::string& unit, int startLine,
                       int endLine) {
    expectRefused(unit, startLine, [&] { handler.startElement(anElement, noAttributes); });
    expectRefused(unit, endLine, [&] { handler.endElement(anElement); });
}

/// A parser and a context as a reading has them.
struct Reading {
    TzXmlSAXParser parser;
    TzSoapParseContext context;

    Reading() { context.setParser(&parser); }
};

TzXmlName faultName() { return V::getSoapElementName(V::Fault, V::V1_2); }

} // namespace

TEST(EventOrder, AHeaderThatIsNotReadRefusesEvents) {
    TzSoapHeaderImp header(V::V1_2);
    expectRefused("TzSoapGenericTypeHandler", 132,
                  [&] { header.startElement(anElement, noAttributes); });
    expectRefused("TzSoapHeaderImp", 74, [&] { header.endElement(anElement); });
    EXPECT_EQ(header.entryCount(), 0U);
}

TEST(EventOrder, ABodyThatIsNotReadRefusesEvents) {
    TzSoapBodyImp body(V::V1_2);
    expectRefused("TzSoapGenericTypeHandler", 132,
                  [&] { body.startElement(anElement, noAttributes); });
    expectRefused("TzSoapBodyImp", 80, [&] { body.startElement(faultName(), noAttributes); });
    expectRefused("TzSoapBodyImp", 88, [&] { body.endElement(anElement); });
    EXPECT_EQ(body.entryCount(), 0U);
    EXPECT_FALSE(body.hasSoapFault());
}

TEST(EventOrder, AFaultThatIsNotReadRefusesEvents) {
    TzSoapFaultImp fault(faultName(), V::V1_2);
    fault.setReason("kept");
    expectRefused("TzSoapFaultImp", 88, [&] {
        fault.startElement(V::getSoapElementName(V::FaultString, V::V1_2), noAttributes);
    });
    expectRefused("TzSoapFaultImp", 116, [&] { fault.characters("lost"); });
    expectRefused("TzSoapFaultImp", 122, [&] { fault.endElement(anElement); });
    EXPECT_EQ(fault.getReason(), "kept");
}

TEST(EventOrder, AValueThatIsNotReadRefusesEvents) {
    TzSoapCompositeTypeImp composite;
    expectBothRefused(composite, "TzSoapGenericTypeHandler", 132, 97);
    EXPECT_EQ(composite.childCount(), 0U);
    TzSoapCompactArrayImp array(TzXmlName(), "xsd:int", 2, 0);
    expectBothRefused(array, "TzSoapGenericTypeHandler", 132, 97);
    TzSoapReferenceToSoapTypeImp reference;
    expectRefused("TzSoapGenericTypeHandler", 97, [&] { reference.endElement(anElement); });
}

TEST(EventOrder, TypeHandlersThatReadNothingRefuseEvents) {
    TzSoapUnknownTypeHandler unknown;
    expectBothRefused(unknown, "TzSoapUnknownTypeHandler", 72, 81);
    TzSoapArrayTypeHandler array;
    expectBothRefused(array, "TzSoapArrayTypeHandler", 37, 47);
    TzSoapUserDefinedTypeHandler userDefined;
    expectBothRefused(userDefined, "TzSoapUserDefinedTypeHandler", 40, 49);
}

TEST(EventOrder, AMessageThatIsNotReadRefusesEvents) {
    const TzSoapMessage message;
    TzSoapMessageImp& imp = TzSoapAccess::body(message);
    const TzXmlName envelope = V::getSoapElementName(V::Envelope, V::V1_1);
    expectRefused("TzSoapMessageImp", 252, [&] { imp.startElement(envelope, noAttributes); });
    expectRefused("TzSoapMessageImp", 271, [&] { imp.endElement(envelope); });
    EXPECT_EQ(message.getVersion(), V::V1_2);
}

TEST(EventOrder, TheEndOfAnElementComesOnce) {
    Reading reading;
    TzSoapHeaderImp header(V::V1_2);
    header.populate(header.getName(), noAttributes, &reading.context);
    header.endElement(header.getName());
    expectRefused("TzSoapHeaderImp", 74, [&] { header.endElement(header.getName()); });

    TzSoapFaultImp fault(faultName(), V::V1_2);
    fault.populate(faultName(), noAttributes, &reading.context);
    fault.endElement(faultName());
    expectRefused("TzSoapFaultImp", 122, [&] { fault.endElement(faultName()); });
    EXPECT_TRUE(reading.context.getNamespaces().empty());
}

TEST(EventOrder, AnElementWhoseScopeIsGoneDoesNotEnd) {
    Reading reading;
    TzSoapHeaderImp header(V::V1_2);
    header.populate(header.getName(), noAttributes, &reading.context);
    TzSoapAccess::reading(reading.context).clear();
    expectRefused("TzSoapGenericTypeHandler", 98, [&] { header.endElement(header.getName()); });

    TzSoapFaultImp fault(faultName(), V::V1_2);
    fault.populate(faultName(), noAttributes, &reading.context);
    TzSoapAccess::reading(reading.context).clear();
    expectRefused("TzSoapFaultImp", 123, [&] { fault.endElement(faultName()); });
}

TEST(EventOrder, AnElementWhoseStyleIsGoneDoesNotEnd) {
    Reading reading;
    TzSoapHeaderImp header(V::V1_2);
    TzXmlAttributeSet attributes;
    attributes.add(V::getSoapAttributeName(V::EncodingStyle, V::V1_2), "urn:style");
    header.populate(header.getName(), attributes, &reading.context);
    reading.context.getEncodingStyles().pop();
    expectRefused("TzSoapGenericTypeHandler", 98, [&] { header.endElement(header.getName()); });
}

TEST(EventOrder, WhatAFailedReadingLeftRefusesEvents) {
    TzSoapMessage message;
    EXPECT_EQ(textThrown<TzXmlParseError>([&] {
                  message.extract(
                      "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Body>\n"
                      "<a><b>");
              }),
              "no element found, line 2, column 7");
    TzSoapBodyImp& body = TzSoapAccess::body(message.getSoapBody());
    expectRefused("TzSoapGenericTypeHandler", 98, [&] { body.endElement(body.getName()); });
    TzSoapMessageImp& imp = TzSoapAccess::body(message);
    expectRefused("TzSoapMessageImp", 271, [&] { imp.endElement(imp.getName()); });
}

TEST(EventOrder, NothingIsReadWithoutAParser) {
    TzSoapParseContext context;
    TzSoapHeaderImp header(V::V1_2);
    TzSoapFaultImp fault(faultName(), V::V1_2);
    TzSoapUnknownTypeHandler unknown;
    for (TzSoapParseContext* const none : {&context, static_cast<TzSoapParseContext*>(nullptr)}) {
        expectRefused("TzSoapContentHandler", 21,
                      [&] { header.populate(header.getName(), noAttributes, none); });
        expectRefused("TzSoapContentHandler", 21,
                      [&] { fault.populate(faultName(), noAttributes, none); });
        expectRefused("TzSoapContentHandler", 21,
                      [&] { unknown.populate(anElement, noAttributes, none, &header); });
    }
    EXPECT_TRUE(context.getNamespaces().empty());
}
