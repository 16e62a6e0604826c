// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapCompositeType.h>
#include <tz/tools/TzCString.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/TzDecimalPortable.h>

#include <optional>
#include <string>
#include <vector>

/// What orders.wsdl describes: the values that travel, and their literal form. Reading looks at
/// names, namespaces and the wanted types alone and refuses what the schema does not have, with
/// `std::runtime_error` or the errors of the library.
namespace orders {

/// The namespace of all elements.
const TzXmlNamespace& space();
/// A name in it.
TzXmlName qualified(const char* name);

struct Line {
    std::string article;
    int amount = 0;
    TzDecimalPortable price;
    std::vector<std::string> tags;
    std::optional<std::string> currency;
};

struct Order {
    std::string number;
    std::string customer;
    TzDateTime placed;
    std::optional<bool> express;
    std::optional<std::string> remark; ///< Nil without.
    std::vector<Line> lines;
};

/// What came of an order.
struct Receipt {
    Order order;
    long long amount = 0;
    double cost = 0;
};

/// Lists of values, a type each.
struct Values {
    std::vector<std::optional<std::string>> texts = {}; ///< Nil without.
    std::vector<long long> counts = {};
    std::vector<double> numbers = {};
    std::vector<TzDecimalPortable> decimals = {};
    std::vector<bool> flags = {};
    std::vector<TzDateTime> moments = {};
    std::vector<std::string> bytes = {};
};

/// @name The element `name` with that content.
/// @{
TzSoapCompositeType write(const char* name, const Order& order);
TzSoapCompositeType write(const char* name, const Receipt& receipt);
TzSoapCompositeType write(const char* name, const Values& values);
/// @}

/// The element `name` that holds these.
TzSoapCompositeType wrap(const char* name, const std::vector<TzSoapType>& children);
/// The element `name` with that text.
TzSoapType writeText(const char* name, const std::string& text);
/// The children of `element`, which have the names in `wanted`; `std::runtime_error` for others.
std::vector<TzSoapType> childrenOf(const TzSoapType& element,
                                   const std::vector<const char*>& wanted);

Order readOrder(const TzSoapType& element);
Receipt readReceipt(const TzSoapType& element);
Values readValues(const TzSoapType& element);

/// @name Everything in it, on one line: equal texts stand for equal values.
/// @{
std::string show(const Order& order);
std::string show(const Receipt& receipt);
std::string show(const Values& values);
/// @}

} // namespace orders
