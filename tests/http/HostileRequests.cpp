// SPDX-License-Identifier: MIT
#include "http/HostileRequests.h"

#include "values/EnvelopeTesting.h"

#include <soap/TzSoapHttpBinding.h>
#include <soap/TzSoapHttpTransportContext.h>
#include <soap/TzSoapVersion.h>

#include <gtest/gtest.h>

namespace {

constexpr TzSoapVersion::Version First = TzSoapVersion::V1_1;
constexpr char Xml[] = "text/xml; charset=utf-8";

std::string repeated(const std::string& part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += part;
    }
    return text;
}

/// A document type whose entities grow tenfold at each level.
std::string entityBomb() {
    std::string text = "<?xml version=\"1.0\"?><!DOCTYPE b [<!ENTITY e0 \"ha\">";
    for (int level = 1; level < 10; ++level) {
        const std::string name = "&e" + std::to_string(level - 1) + ";";
        text += "<!ENTITY e" + std::to_string(level) + " \"" + repeated(name, 10) + "\">";
    }
    return text + "]>" + envelope(First, "<echoIt><a>&e9;</a></echoIt>");
}

std::string package(const std::string& parts) {
    return repeated("\r\n--b\r\nContent-Type: text/xml\r\n\r\n", 1) + parts;
}

std::vector<HostileRequest> makeRequests() {
    const std::string good = envelope(First, "<echoIt><a>1</a></echoIt>");
    return {
        {"nothing", Xml, ""},
        {"no XML", Xml, "hello"},
        {"bytes", Xml, std::string("\0\xFF\xFE\x01<", 5)},
        {"truncated", Xml, good.substr(0, good.size() / 2)},
        {"truncated in a tag", Xml, good.substr(0, good.rfind('<') + 3)},
        {"bytes that are not UTF-8", Xml, envelope(First, "<echoIt><a>\xC3(</a></echoIt>")},
        {"unbalanced", Xml, envelope(First, "<echoIt><a></echoIt></a>")},
        {"undefined entity", Xml, envelope(First, "<echoIt><a>&x;</a></echoIt>")},
        {"entity bomb", Xml, entityBomb()},
        {"external entity", Xml,
         "<!DOCTYPE e [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>" +
             envelope(First, "<echoIt><a>&x;</a></echoIt>")},
        {"deep nesting", Xml,
         envelope(First,
                  "<echoIt>" + repeated("<a>", 20000) + repeated("</a>", 20000) + "</echoIt>")},
        {"depth without end", Xml, envelope(First, "<echoIt>" + repeated("<a>", 100000))},
        {"array larger than memory", Xml,
         envelope(First, "<echoIt><a c:arrayType='x:int[4000000000]'><i>1</i></a></echoIt>")},
        {"array of many axes", Xml,
         envelope(First, "<echoIt><a c:arrayType='x:int[60000,60000,60000]'/></echoIt>")},
        {"array with a broken shape", Xml,
         envelope(First, "<echoIt><a c:arrayType='x:int[1,,2]'><i/></a></echoIt>")},
        {"positions far apart", Xml,
         envelope(First, "<echoIt><a c:arrayType='x:int[4000000000]'>"
                         "<i c:position='[x]'>1</i></a></echoIt>")},
        {"too many attributes", Xml,
         envelope(First, "<echoIt><a" + repeated(" x='1'", 3) + "/></echoIt>")},
        {"reference with content", Xml, envelope(First, "<echoIt><a href='#b'><c/></a></echoIt>")},
        {"no body", Xml, "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'/>"},
        {"another element", Xml, "<html><body/></html>"},
        {"another envelope child", Xml,
         "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Tail/>"
         "</e:Envelope>"},
        {"no content type that we take", "application/json", "{}"},
        {"form", "application/x-www-form-urlencoded", "a=1&b=2"},
        {"form of parts", "multipart/form-data; boundary=b", package(good) + "\r\n--b--\r\n"},
        {"package without boundary", "multipart/related", package(good)},
        {"package with another boundary", "multipart/related; boundary=c", package(good)},
        {"package without its root", "multipart/related; boundary=b; start=\"<none>\"",
         package(good)},
        {"package of nothing", "multipart/related; boundary=b", "--b--"},
        {"package with a broken root", "multipart/related; boundary=b", package("<e:Envelope")},
        {"package in base64 that is none", "multipart/related; boundary=b",
         "--b\r\nContent-Transfer-Encoding: base64\r\n\r\n***\r\n--b--"},
        {"package of many parts", "multipart/related; boundary=b",
         repeated("--b\r\n\r\n", 5000) + "--b--"},
    };
}

} // namespace

const std::vector<HostileRequest>& hostileRequests() {
    static const std::vector<HostileRequest> requests = makeRequests();
    return requests;
}

bool isRefusal(const HttpAnswer& answer) {
    if (answer.status != 500) {
        return answer.status == 400 || answer.status == 415;
    }
    TzSoapHttpTransportContext context;
    context.add(TzSoapHttpBinding::getContentTypeLabel(), answer.contentType);
    TzSoapMessage message;
    TzSoapHttpBinding::unpack(context, answer.body, message);
    const TzXmlName code = message.getSoapBody().getSoapFault().getCode();
    return code == message.getSoapVersion().getFaultCode(TzSoapVersion::Client);
}

void expectRefused(const HostileRequest& request, const HttpAnswer& answer) {
    EXPECT_TRUE(isRefusal(answer)) << request.what << ": status " << answer.status << '\n'
                                   << answer.body.substr(0, 1000);
}

const std::vector<std::string>& brokenHttp() {
    static const std::vector<std::string> texts = {
        "",
        "\r\n\r\n",
        "hello\r\n\r\n",
        "POST\r\n\r\n",
        "POST / HTTP/9.9\r\n\r\n",
        "GET / HTTP/1.1\r\n\r\n",
        "POST /else HTTP/1.1\r\nContent-Length: 0\r\n\r\n",
        "POST / HTTP/1.1\r\nContent-Length: -5\r\n\r\n<a/>",
        "POST / HTTP/1.1\r\nContent-Length: 99999999999999999999999\r\n\r\n<a/>",
        "POST / HTTP/1.1\r\nContent-Type: text/xml\r\nContent-Length: 1000\r\n\r\n<a/>",
        "POST / HTTP/1.1\r\nContent-Type: text/xml\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\n",
        "POST / HTTP/1.1\r\nContent-Type: text/xml\r\nTransfer-Encoding: chunked\r\n\r\n"
        "FFFFFFFFFFFFFFFF\r\n<a/>",
        "POST / HTTP/1.1\r\nContent-Type: text/xml\r\nContent-Encoding: gzip\r\n"
        "Content-Length: 4\r\n\r\n<a/>",
        "POST /" + std::string(20000, 'a') + " HTTP/1.1\r\n\r\n",
        "POST / HTTP/1.1\r\nX: " + std::string(20000, 'a') + "\r\n\r\n",
        std::string(100000, 'a'),
        std::string(1000, '\0'),
    };
    return texts;
}
