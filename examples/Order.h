// SPDX-License-Identifier: MIT
#pragma once

#include <soap/TzSoapFields.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

/// What the echo client sends and gets back.
struct Order {
    std::string customer;
    int amount = 0;
    double price = 0;
    bool express = false;
    std::chrono::sys_seconds until;
    TzSoapBytes seal;
    std::optional<std::string> remark;
    std::vector<int> sizes;
    std::optional<TzSoapType> document; ///< A reference to an attachment.
};

template <> struct TzSoapFields<Order> {
    static constexpr auto fields = tzFields(
        tzField("customer", &Order::customer), tzField("amount", &Order::amount),
        tzField("price", &Order::price), tzField("express", &Order::express),
        tzField("until", &Order::until), tzField("seal", &Order::seal),
        tzField("remark", &Order::remark).nillable(),
        tzField("sizes", &Order::sizes).wrapped("item"), tzField("document", &Order::document));
};

/// The parameters of the operation, and its answer.
struct EchoedOrder {
    Order order;
};

template <> struct TzSoapFields<EchoedOrder> {
    static constexpr auto fields = tzFields(tzField("order", &EchoedOrder::order));
};

/// An order, with the bytes of `file` beside it unless that is "". `std::runtime_error` for a file
/// that cannot be read.
EchoedOrder makeOrder(const std::string& file);

/// The order in lines of text. `TzXmlBadArgError` for a document that is not an attachment.
std::string describe(const Order& order);
