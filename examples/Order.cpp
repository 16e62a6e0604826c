// SPDX-License-Identifier: MIT
#include "Order.h"

#include <soap/TzSoapCast.h>
#include <soap/TzSoapReferenceType.h>
#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzXmlUtils.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

EchoedOrder makeOrder(const std::string& file) {
    using std::chrono::sys_days;
    Order order;
    order.customer = "Jürgen & Zoë <Ltd>";
    order.amount = 200;
    order.price = 17.25;
    order.express = true;
    order.until = sys_days(std::chrono::year(2027) / 1 / 1) - std::chrono::seconds(1);
    order.seal.value = std::string("\0\xFF\x7F", 3);
    order.sizes = {0, 1, 4};
    if (!file.empty()) {
        std::ifstream in(file, std::ios::binary);
        if (!in) {
            throw std::runtime_error(file + ": cannot be opened");
        }
        const std::string bytes(std::istreambuf_iterator<char>(in), {});
        order.document = TzSoapReferenceType(
            "document", TzMimePart::make(bytes, "application/octet-stream", "document@example"));
    }
    return {order};
}

std::string describe(const Order& order) {
    std::ostringstream out;
    out << "customer " << order.customer << "\namount " << order.amount << ", price " << order.price
        << (order.express ? ", express" : "") << "\nuntil "
        << TzXmlUtils::convertDateTimeToISOString(TzDateTime(order.until)) << "\nseal of "
        << order.seal.value.size() << " bytes" << (order.remark ? ", a remark" : ", no remark")
        << "\nsizes";
    for (const int size : order.sizes) {
        out << ' ' << size;
    }
    if (order.document) {
        const auto reference = tzSoapAs<TzSoapReferenceType>(*order.document);
        out << "\ndocument of " << reference.getMimeReference().getBodyView().size() << " bytes";
    }
    return out.str();
}
