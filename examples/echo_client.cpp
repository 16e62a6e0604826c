// SPDX-License-Identifier: MIT
//
// Calls the echo service: sends an order with a header entry, shows what travels both ways and
// takes the values out of the answer.
//
//     echo_client URL [1.1|1.2 [ATTACHMENT]]      exit status 2 for a fault, 1 for other failures
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapLenientValue.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <tz/mime/TzMimeBase64.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzDateTime.h>
#include <tz/xml/TzXmlUtils.h>

#include <httplib.h>

#include <csignal>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

using Base = TzSoapContentBase;

constexpr char Action[] = "urn:example:echo#echoOrder";

const TzXmlNamespace& service() {
    static const TzXmlNamespace instance("m", "urn:example:echo");
    return instance;
}

/// What `post` sends and receives goes through here.
void show(const char* title, const TzSoapHttpTransportContext& headers, const std::string& body) {
    std::cout << "--- " << title << " ---\n" << headers.asString() << '\n' << body << '\n';
}

/// Posts `request` to `url` and returns the answer, which may be a fault. `std::runtime_error` when
/// there is no answer, `Tzxmsg` when it is not a message.
TzSoapMessage post(const std::string& url, const TzSoapMessage& request, const char* action) {
    const std::size_t path = url.find('/', url.find("://") + 3);
    httplib::Client http(url.substr(0, path));
    http.set_connection_timeout(10);
    http.set_read_timeout(60);
    TzSoapHttpTransportContext sent;
    sent.setSoapAction(action);
    const std::string body = TzSoapHttpBinding::pack(request, sent);
    show("request", sent, body);
    const std::string contentTypeLabel = TzSoapHttpBinding::getContentTypeLabel();
    httplib::Headers headers;
    for (const auto& [name, value] : sent) {
        if (name != contentTypeLabel) {
            headers.emplace(name, value);
        }
    }
    const httplib::Result result = http.Post(path == std::string::npos ? "/" : url.substr(path),
                                             headers, body, sent.find(contentTypeLabel)->second);
    if (!result) {
        throw std::runtime_error(url + ": " + httplib::to_string(result.error()));
    }
    TzSoapHttpTransportContext received;
    received.add(contentTypeLabel, result->get_header_value(contentTypeLabel));
    show(("answer, status " + std::to_string(result->status)).c_str(), received, result->body);
    TzSoapMessage answer;
    TzSoapHttpBinding::unpack(received, result->body, answer);
    return answer;
}

TzSoapSimpleType simple(const char* name, const TzCString& text, Base::SchemaType type) {
    return {TzXmlName(name), text, type, true};
}

/// A reference to the bytes of `file`, which travel beside the envelope.
TzSoapReferenceType attachment(const char* name, const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error(file + ": cannot be opened");
    }
    TzMimePart part;
    part.insertHeader(TzMimeHeader("Content-Type", "application/octet-stream"));
    part.insertHeader(TzMimeHeader("Content-Transfer-Encoding", "binary"));
    part.insertHeader(TzMimeContentIdHeader("<document@example>"));
    part.setBody(std::string(std::istreambuf_iterator<char>(in), {}));
    return {TzXmlName(name), part};
}

TzSoapMessage makeRequest(TzSoapVersion::Version version, const char* file) {
    TzSoapMessage message(version);
    message.setProlog(TzXmlProlog());
    message.addNamespaceAttribute(TzXmlNamespace::getXsd());
    message.addNamespaceAttribute(TzXmlNamespace::getXsi());
    // The service must understand this entry, or refuse the request.
    const TzSoapSimpleType ticket(TzXmlName("echo", service()), "ticket 7", Base::xsdString, true);
    message.getSoapHeader().appendHeaderEntry(ticket, true);

    TzSoapCompositeType order(TzXmlName("order"));
    order.appendChild(simple("customer", "Jürgen & Zoë <Ltd>", Base::xsdString));
    order.appendChild(TzSoapSimpleType("amount", 200, Base::xsdInt, true));
    order.appendChild(TzSoapSimpleType("price", 17.25, Base::xsdDouble, true));
    order.appendChild(TzSoapSimpleType("express", true, Base::xsdBoolean, true));
    order.appendChild(simple("until", "2026-12-31T23:59:59+01:00", Base::xsdDateTime));
    order.appendChild(
        simple("seal", TzMimeBase64::encode({"\0\xFF\x7F", 3}), Base::xsdBase64Binary));
    TzSoapSimpleType remark = simple("remark", "", Base::xsdString);
    remark.setNull(true);
    order.appendChild(remark);
    TzSoapCompactArrayType sizes(TzXmlName("sizes"), "xsd:int", 3U, 0U);
    for (unsigned int i = 0; i < 3; ++i) {
        sizes[i] = TzSoapSimpleType("item", static_cast<int>(i * i), Base::xsdInt, true);
    }
    order.appendChild(sizes);
    if (file != nullptr) {
        order.appendChild(attachment("document", file));
    }
    TzSoapCompositeType operation(TzXmlName("echoOrder", service()));
    operation.appendChild(order);
    message.getSoapBody().appendEntry(operation);
    return message;
}

/// The child of `parent` with that name.
const TzSoapType& member(const TzSoapCompositeType& parent, const char* name) {
    const auto found = parent.findChild(TzXmlName(name));
    if (found == parent.childrenEnd()) {
        throw std::runtime_error(std::string("the answer has no ") + name);
    }
    return *found;
}

/// `value` as a struct.
TzSoapCompositeType structOf(const TzSoapType& value) {
    const auto read = tzSoapCast<TzSoapCompositeType>(value);
    if (!read) {
        throw std::runtime_error(value.getName().getLocalName() + " is not a struct");
    }
    return *read;
}

void showOrder(const TzSoapCompositeType& order) {
    const auto lenient = [&](const char* name) { return TzSoapLenientValue(member(order, name)); };
    std::cout << "--- the order in the answer ---\n"
              << "customer " << lenient("customer").getString() << "\namount "
              << lenient("amount").getInt() << ", price " << lenient("price").getDouble()
              << (lenient("express").getBool() ? ", express" : "") << "\nuntil "
              << TzXmlUtils::convertDateTimeToISOString(lenient("until").getDateTime())
              << "\nseal of " << lenient("seal").getBytes().size() << " bytes"
              << (lenient("remark").isNull() ? ", no remark" : ", a remark") << "\nsizes";
    const auto sizes = tzSoapCast<TzSoapCompactArrayType>(member(order, "sizes"));
    for (unsigned int i = 0; sizes && i < sizes->entries(); ++i) {
        const TzSoapCompactArrayType& items = *sizes;
        std::cout << ' ' << TzSoapLenientValue(items[i]).getInt();
    }
    std::cout << '\n';
    const auto document = order.findChild(TzXmlName("document"));
    if (document != order.childrenEnd()) {
        const TzSoapReferenceType reference = *tzSoapCast<TzSoapReferenceType>(*document);
        std::cout << "document of " << reference.getMimeReference().getBodyView().size()
                  << " bytes\n";
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: echo_client URL [1.1|1.2 [ATTACHMENT]]\n";
        return 1;
    }
    std::signal(SIGPIPE, SIG_IGN); // a server may refuse a request before it has all of it
    try {
        const bool first = argc < 3 || std::string(argv[2]) == "1.1";
        const TzSoapMessage request = makeRequest(first ? TzSoapVersion::V1_1 : TzSoapVersion::V1_2,
                                                  argc > 3 ? argv[3] : nullptr);
        const TzSoapMessage answer = post(argv[1], request, Action);
        if (answer.getSoapBody().hasSoapFault()) {
            const TzSoapFault& fault = answer.getSoapBody().getSoapFault();
            std::cerr << "fault " << fault.getCode().getQualifiedName() << ": " << fault.getReason()
                      << '\n';
            return 2;
        }
        showOrder(structOf(member(structOf(*answer.getSoapBody().entriesBegin()), "order")));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "echo_client: " << error.what() << '\n';
        return 1;
    }
}
