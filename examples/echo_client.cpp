// SPDX-License-Identifier: MIT
//
// Calls the echo service: sends an order with a header entry, shows what travels both ways and
// takes the values out of the answer.
//
//     echo_client URL [1.1|1.2|1.2-2002 [ATTACHMENT]]      exit status 1 for a fault and for other
//     failures
#include <soap/TzSoapCast.h>
#include <soap/TzSoapCompactArrayType.h>
#include <soap/TzSoapCompositeType.h>
#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapMessage.h>
#include <soap/TzSoapReferenceType.h>
#include <soap/TzSoapSimpleType.h>
#include <soap/TzSoapValueReader.h>
#include <tz/mime/TzMimeBase64.h>
#include <tz/mime/TzMimeContentIdHeader.h>
#include <tz/mime/TzMimePart.h>
#include <tz/tools/TzDateTime.h>
#include <tz/tools/Tzxmsg.h>
#include <tz/xml/TzXmlUtils.h>

#include <httplib.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <future>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using Base = TzSoapContentBase;

constexpr char Action[] = "urn:example:echo#echoOrder";
constexpr std::chrono::seconds Patience(10); // for the whole answer

const TzXmlNamespace& service() {
    static const TzXmlNamespace instance("m", "urn:example:echo");
    return instance;
}

/// What `post` sends and receives goes through here.
void show(const char* title, const TzSoapHttpTransportContext& headers, const std::string& body) {
    std::cout << "--- " << title << " ---\n" << headers.asString() << '\n' << body << '\n';
}

/// Posts `body` and returns the answer. `std::runtime_error` without one in time: a service may
/// be slow, or never end what it sends.
httplib::Response exchange(const std::string& url, const httplib::Headers& headers,
                           const std::string& body) {
    const std::size_t host = url.find("://");
    const std::size_t path = host == std::string::npos ? host : url.find('/', host + 3);
    httplib::Client http(url.substr(0, path));
    http.set_connection_timeout(Patience);
    http.set_read_timeout(Patience);
    std::future<httplib::Result> posting = std::async(std::launch::async, [&] {
        return http.Post(path == std::string::npos ? "/" : url.substr(path), headers, body, "");
    });
    while (posting.wait_for(Patience) == std::future_status::timeout) {
        http.stop();
    }
    const httplib::Result result = posting.get();
    if (!result) {
        throw std::runtime_error(url + ": no answer: " + httplib::to_string(result.error()));
    }
    return *result;
}

/// Posts `request` to `url` and returns the answer, which may be a fault. `std::runtime_error` when
/// it is missing or not a message.
TzSoapMessage post(const std::string& url, const TzSoapMessage& request, const char* action) {
    TzSoapHttpTransportContext sent;
    sent.setSoapAction(action);
    const std::string body = TzSoapHttpBinding::pack(request, sent);
    show("request", sent, body);
    const httplib::Response response = exchange(url, {sent.begin(), sent.end()}, body);
    const std::string contentType = TzSoapHttpBinding::getContentTypeLabel();
    TzSoapHttpTransportContext received;
    received.add(contentType, response.get_header_value(contentType));
    const std::string status = "status " + std::to_string(response.status);
    show(("answer, " + status).c_str(), received, response.body);
    TzSoapMessage answer;
    try {
        TzSoapHttpBinding::unpack(received, response.body, answer);
    } catch (const Tzxmsg& error) {
        throw std::runtime_error("the answer with " + status +
                                 " is not a message: " + error.describe());
    }
    return answer;
}

/// One second before the year 2027 begins.
std::chrono::sys_seconds lastMoment() {
    return std::chrono::sys_days(std::chrono::year(2027) / 1 / 1) - std::chrono::seconds(1);
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
    message.declareTypeNamespaces(); // or receivers do not know what "xsd:int" means
    // The service must understand this entry, or refuse the request.
    const TzSoapSimpleType ticket(TzXmlName("echo", service()), "ticket 7", Base::xsdString, true);
    message.getSoapHeader().appendHeaderEntry(ticket, true);

    TzSoapCompositeType order(TzXmlName("order"));
    order.appendChild(simple("customer", "Jürgen & Zoë <Ltd>", Base::xsdString));
    order.appendChild(TzSoapSimpleType("amount", 200, Base::xsdInt, true));
    order.appendChild(TzSoapSimpleType::exact("price", 17.25, Base::xsdDouble, true));
    order.appendChild(TzSoapSimpleType("express", true, Base::xsdBoolean, true));
    order.appendChild(TzSoapSimpleType("until", lastMoment(), Base::xsdDateTime, true));
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

/// The version of SOAP that the command line names. `std::runtime_error` for any other name.
TzSoapVersion::Version versionOf(const std::string& name) {
    static const std::map<std::string, TzSoapVersion::Version> versions = {
        {"1.1", TzSoapVersion::V1_1},
        {"1.2", TzSoapVersion::V1_2Rec}, // the SOAP 1.2 of living services
        {"1.2-2002", TzSoapVersion::V1_2}};
    const auto found = versions.find(name);
    if (found == versions.end()) {
        throw std::runtime_error(name + " is not a version of SOAP");
    }
    return found->second;
}

/// The contents of the order, found by names: a value that is missing or of another kind is an
/// error that says so, whatever the service answers.
std::string describe(const TzSoapType& order) {
    const auto value = [&](const char* name) { return TzSoapValueReader(order.getChild(name)); };
    std::ostringstream out;
    out << "customer " << value("customer").getString() << "\namount " << value("amount").getInt()
        << ", price " << value("price").getDouble()
        << (value("express").getBool() ? ", express" : "") << "\nuntil "
        << TzXmlUtils::convertDateTimeToISOString(value("until").getDateTime()) << "\nseal of "
        << value("seal").getBytes().size() << " bytes"
        << (value("remark").isNull() ? ", no remark" : ", a remark") << "\nsizes";
    const auto sizes = tzSoapAs<TzSoapCompactArrayType>(order.getChild("sizes"));
    for (unsigned int i = 0; i < sizes.entries(); ++i) {
        out << ' ' << TzSoapValueReader(sizes(i)).getInt();
    }
    if (const auto document = order.findChildValue("document")) {
        const auto reference = tzSoapAs<TzSoapReferenceType>(*document);
        out << "\ndocument of " << reference.getMimeReference().getBodyView().size() << " bytes";
    }
    return out.str();
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: echo_client URL [1.1|1.2|1.2-2002 [ATTACHMENT]]\n";
        return 1;
    }
    std::signal(SIGPIPE, SIG_IGN); // a server may refuse a request before it has all of it
    try {
        const TzSoapMessage request =
            makeRequest(versionOf(argc < 3 ? "1.1" : argv[2]), argc > 3 ? argv[3] : nullptr);
        const TzSoapMessage answer = post(argv[1], request, Action);
        const TzSoapBody& body = answer.getSoapBody();
        if (body.hasFaultElement()) {
            const TzSoapFault& fault = body.getSoapFault();
            throw std::runtime_error("fault " + fault.getCodeValue().getQualifiedName() + ": " +
                                     fault.getReason());
        }
        std::cout << "--- the order in the answer ---\n"
                  << describe(body.getFirstEntry().getChild("order")) << '\n';
        return 0;
    } catch (const std::exception& error) {
        const auto* const known = dynamic_cast<const Tzxmsg*>(&error);
        std::cerr << "echo_client: " << (known ? known->describe() : error.what()) << '\n';
        return 1;
    }
}
