// SPDX-License-Identifier: MIT
#include "Orders.h"

#include "../Compare.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeBase64.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace orders {

namespace {

using Base = TzSoapContentBase;

template <typename Value>
TzSoapSimpleType simple(const char* name, const Value& value, Base::SchemaType type) {
    return {qualified(name), value, type, false};
}

TzSoapSimpleType exact(const char* name, double value) {
    return TzSoapSimpleType::exact(qualified(name), value, Base::xsdDouble, false);
}

TzSoapSimpleType nillable(const char* name, const std::optional<std::string>& text) {
    TzSoapSimpleType element = simple(name, text.value_or(""), Base::xsdString);
    if (!text) {
        element.setNull(true);
    }
    return element;
}

TzSoapCompositeType write(const char* name, const Line& line) {
    TzSoapCompositeType element(qualified(name));
    if (line.currency) {
        element.addAttribute(TzXmlName("currency"), *line.currency);
    }
    element.appendChild(simple("article", line.article, Base::xsdString));
    element.appendChild(simple("amount", line.amount, Base::xsdInt));
    element.appendChild(simple("price", line.price, Base::xsdDecimal));
    for (const std::string& tag : line.tags) {
        element.appendChild(simple("tag", tag, Base::xsdString));
    }
    return element;
}

TzSoapValueReader child(const TzSoapType& parent, const char* name) {
    return TzSoapValueReader(parent.getChild(qualified(name)));
}

std::optional<std::string> nillable(const TzSoapType& element) {
    const TzSoapValueReader value(element);
    return value.isNull() ? std::nullopt : std::optional(value.getString());
}

std::optional<std::string> attribute(const TzSoapType& element, const char* name) {
    const auto* const found = element.findAttribute(TzXmlName(name));
    return found == element.attributesEnd() ? std::nullopt : std::optional(found->getValue());
}

bool has(const TzSoapType& element, const char* local) {
    return element.getName() == qualified(local);
}

Line readLine(const TzSoapType& element) {
    Line line;
    line.currency = attribute(element, "currency");
    line.article = child(element, "article").getString();
    line.amount = child(element, "amount").getInt();
    line.price = child(element, "price").getDecimal();
    for (const TzSoapType& part : childrenOf(element, {"article", "amount", "price", "tag"})) {
        if (has(part, "tag")) {
            line.tags.push_back(TzSoapValueReader(part).getString());
        }
    }
    return line;
}

std::string show(const std::string& text) { return shownText(text); }
std::string show(const std::optional<std::string>& text) { return text ? show(*text) : "nil"; }
std::string show(bool flag) { return flag ? "true" : "false"; }
std::string show(long long number) { return std::to_string(number); }
std::string show(double number) { return exact("number", number).getString(); }
std::string show(const TzDecimalPortable& number) { return number.asString(); }

/// The instant: a peer may state it in another zone.
std::string show(const TzDateTime& moment) {
    const TzSoapSimpleType text = simple("moment", moment, Base::xsdDateTime);
    return std::to_string(text.getSysTime().time_since_epoch().count()) + " ns";
}

std::string show(const Line& line);

template <typename Items> std::string showAll(const char* name, const Items& items) {
    std::string all = std::string(" ") + name + '[';
    for (std::size_t i = 0; i < items.size(); ++i) {
        all += (i == 0 ? "" : ", ") + show(items[i]);
    }
    return all + ']';
}

std::string show(const Line& line) {
    return "article " + show(line.article) + " amount " + std::to_string(line.amount) + " price " +
           show(line.price) + " currency " + show(line.currency) + showAll("tags", line.tags);
}

} // namespace

const TzXmlNamespace& space() {
    static const TzXmlNamespace instance("o", "urn:example:orders");
    return instance;
}

TzXmlName qualified(const char* name) { return {name, space()}; }

TzSoapCompositeType write(const char* name, const Order& order) {
    TzSoapCompositeType element(qualified(name));
    element.addAttribute(TzXmlName("number"), order.number);
    element.appendChild(simple("customer", order.customer, Base::xsdString));
    element.appendChild(simple("placed", order.placed, Base::xsdDateTime));
    if (order.express) {
        element.appendChild(simple("express", *order.express, Base::xsdBoolean));
    }
    element.appendChild(nillable("remark", order.remark));
    for (const Line& line : order.lines) {
        element.appendChild(write("line", line));
    }
    return element;
}

TzSoapCompositeType write(const char* name, const Receipt& receipt) {
    return wrap(name,
                {write("order", receipt.order), simple("amount", receipt.amount, Base::xsdLong),
                 exact("cost", receipt.cost)});
}

TzSoapCompositeType write(const char* name, const Values& values) {
    TzSoapCompositeType element(qualified(name));
    for (const auto& text : values.texts) {
        element.appendChild(nillable("text", text));
    }
    for (const long long count : values.counts) {
        element.appendChild(simple("count", count, Base::xsdLong));
    }
    for (const double number : values.numbers) {
        element.appendChild(exact("number", number));
    }
    for (const TzDecimalPortable& decimal : values.decimals) {
        element.appendChild(simple("decimal", decimal, Base::xsdDecimal));
    }
    for (const bool flag : values.flags) {
        element.appendChild(simple("flag", flag, Base::xsdBoolean));
    }
    for (const TzDateTime& moment : values.moments) {
        element.appendChild(simple("moment", moment, Base::xsdDateTime));
    }
    for (const std::string& bytes : values.bytes) {
        element.appendChild(simple("bytes", TzMimeBase64::encode(bytes), Base::xsdBase64Binary));
    }
    return element;
}

TzSoapCompositeType wrap(const char* name, const std::vector<TzSoapType>& children) {
    TzSoapCompositeType element(qualified(name));
    for (const TzSoapType& each : children) {
        element.appendChild(each);
    }
    return element;
}

TzSoapType writeText(const char* name, const std::string& text) {
    return simple(name, text, Base::xsdString);
}

std::vector<TzSoapType> childrenOf(const TzSoapType& element,
                                   const std::vector<const char*>& wanted) {
    std::vector<TzSoapType> children;
    const auto parent = tzSoapAs<TzSoapCompositeType>(element);
    for (const TzSoapType& each : parent) {
        if (std::none_of(wanted.begin(), wanted.end(),
                         [&](const char* name) { return has(each, name); })) {
            throw std::runtime_error("unexpected element " + each.getName().getQualifiedName() +
                                     " of " + each.getName().getNamespace().getUri());
        }
        children.push_back(each);
    }
    return children;
}

Order readOrder(const TzSoapType& element) {
    Order order;
    const auto number = attribute(element, "number");
    if (!number) {
        throw std::runtime_error("an order without number");
    }
    order.number = *number;
    order.customer = child(element, "customer").getString();
    order.placed = child(element, "placed").getDateTime();
    if (const auto express = element.findChildValue(qualified("express"))) {
        order.express = TzSoapValueReader(*express).getBool();
    }
    order.remark = nillable(element.getChild(qualified("remark")));
    for (const TzSoapType& part :
         childrenOf(element, {"customer", "placed", "express", "remark", "line"})) {
        if (has(part, "line")) {
            order.lines.push_back(readLine(part));
        }
    }
    return order;
}

Receipt readReceipt(const TzSoapType& element) {
    childrenOf(element, {"order", "amount", "cost"});
    return {readOrder(element.getChild(qualified("order"))), child(element, "amount").getLongLong(),
            child(element, "cost").getDouble()};
}

Values readValues(const TzSoapType& element) {
    Values values;
    for (const TzSoapType& part :
         childrenOf(element, {"text", "count", "number", "decimal", "flag", "moment", "bytes"})) {
        const TzSoapValueReader value(part);
        if (has(part, "text")) {
            values.texts.push_back(nillable(part));
        } else if (has(part, "count")) {
            values.counts.push_back(value.getLongLong());
        } else if (has(part, "number")) {
            values.numbers.push_back(value.getDouble());
        } else if (has(part, "decimal")) {
            values.decimals.push_back(value.getDecimal());
        } else if (has(part, "flag")) {
            values.flags.push_back(value.getBool());
        } else if (has(part, "moment")) {
            values.moments.push_back(value.getDateTime());
        } else {
            values.bytes.push_back(value.getBytes());
        }
    }
    return values;
}

std::string show(const Order& order) {
    return "order " + show(order.number) + " of " + show(order.customer) + " at " +
           show(order.placed) + " express " + (order.express ? show(*order.express) : "absent") +
           " remark " + show(order.remark) + showAll("lines", order.lines);
}

std::string show(const Receipt& receipt) {
    return show(receipt.order) + " amount " + show(receipt.amount) + " cost " + show(receipt.cost);
}

std::string show(const Values& values) {
    return showAll("texts", values.texts) + showAll("counts", values.counts) +
           showAll("numbers", values.numbers) + showAll("decimals", values.decimals) +
           showAll("flags", values.flags) + showAll("moments", values.moments) +
           showAll("bytes", values.bytes);
}

} // namespace orders
