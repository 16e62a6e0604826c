#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Calls the service of orders.wsdl with zeep: zeep_client.py WSDL URL 1.1|1.2. A line for each case:
its name and "ok" or what came back instead."""
import math
import sys
from datetime import datetime, timedelta, timezone
from decimal import Decimal

from zeep import Client
from zeep.exceptions import Fault
from zeep.xsd import Nil

SPACE = "urn:example:orders"
wsdl, url, version = sys.argv[1:]
client = Client(wsdl)
binding = "Orders11" if version == "1.1" else "Orders12"
service = client.create_service("{%s}%s" % (SPACE, binding), url)
EAST = timezone(timedelta(hours=1))


def shown(value):
    text = repr(value)
    return text if len(text) <= 100 else "%s... of %d characters" % (text[:100], len(text))


def compare(wanted, found, path=""):
    """"ok" for the same types and equal values, NaN equal to itself; or the first that differs."""
    if type(wanted) is type(found) and isinstance(wanted, dict) and list(wanted) == list(found):
        results = [compare(wanted[name], found[name], path + name + " ") for name in wanted]
    elif type(wanted) is type(found) is list and len(wanted) == len(found):
        results = [compare(*pair, path) for pair in zip(wanted, found)]
    else:
        both_nan = wanted != wanted and found != found
        results = ["ok" if type(wanted) is type(found) and (wanted == found or both_nan) else
                   "%swanted %s, came back %s" % (path, shown(wanted), shown(found))]
    return next((result for result in results if result != "ok"), "ok")


def plain(value):
    """What zeep read, as dictionaries and lists."""
    if hasattr(value, "__values__"):
        return {name: plain(member) for name, member in value.__values__.items()}
    return [plain(item) for item in value] if isinstance(value, list) else value


def line(article, amount, price, tags, currency):
    return {"article": article, "amount": amount, "price": Decimal(price), "tag": tags,
            "currency": currency}


def order(lines, **changes):
    return {"customer": "Jürgen & Zoë <Ltd> 漢字 😀",
            "placed": datetime(2026, 12, 31, 23, 59, 59, tzinfo=EAST), "express": True,
            "remark": "soon", "line": lines, "number": 'A-<1> & "2"', **changes}


LINES = [line("nut", 3, "17.25", ["small", "steel"], "EUR"), line("bolt", 40, "0.50", [], None)]


def places(sent, wanted=None):
    """Sends an order and expects it back with its sums; `wanted` where that is written otherwise."""
    answer = plain(service.placeOrder(order=sent))
    return compare({"order": wanted or sent, "amount": sum(each["amount"] for each in sent["line"]),
                    "cost": float(sum(each["amount"] * each["price"] for each in sent["line"]))},
                   answer)


NAMES = ["text", "count", "number", "decimal", "flag", "moment", "bytes"]


def echoes(name, sent, wanted=None):
    answer = plain(service.echoValues(values={name: sent} if name else {}))
    everything = {each: [] for each in NAMES}
    if name:
        everything[name] = wanted or sent
    return compare(everything, answer)


def is_character(code):
    return code & 0xFFFE != 0xFFFE and not 0xFDD0 <= code <= 0xFDEF


def all_of_unicode():
    """Every character that XML can carry, but the carriage return, which has a case of its own."""
    codes = [0x9, 0xA, *range(0x20, 0xD800), *range(0xE000, 0x110000)]
    return "".join(chr(code) for code in codes if is_character(code))


CODES = {"1.1": {"Client": "Client", "Server": "Server"},
         "1.2": {"Client": "Sender", "Server": "Receiver"}}[version]


def fault_of(call, code, reason):
    """The fault with which `call` ends, and "ok" or how that is another."""
    try:
        found = call()
    except Fault as fault:
        local = fault.code.rpartition(":")[2]
        return fault, compare([CODES[code], reason], [local, fault.message])
    return None, "no fault, came back " + shown(found)


def plain_fault():
    sent = order([line("nut", 0, "1", [], None)])
    return fault_of(lambda: service.placeOrder(order=sent), "Server", "Nothing of <nut> & co.")[1]


def detailed_fault():
    number = "B & <é>"
    fault, result = fault_of(lambda: service.cancelOrder(number=number), "Client",
                             "No order <%s> & co." % number)
    if result != "ok":
        return result
    detail = plain(client.wsdl.types.deserialize(fault.detail[0]))
    return compare({"number": number, "orders": 42}, detail)


def unknown_operation():
    """zeep calls what the WSDL has; the message is made from one of those."""
    message = client.create_message(service, "cancelOrder", number="A")
    for element in list(message.iter("{%s}cancelOrder" % SPACE)):
        element.tag = "{%s}burnOrder" % SPACE
    binding_ = service._binding
    headers = ({"Content-Type": "text/xml; charset=utf-8", "SOAPAction": '""'}
               if version == "1.1" else {"Content-Type": "application/soap+xml; charset=utf-8"})
    answer = client.transport.post_xml(url, message, headers)
    return fault_of(
        lambda: binding_.process_reply(client, binding_.get("cancelOrder"), answer), "Client",
        "There is no operation burnOrder")[1]


MOMENT = datetime(2026, 12, 31, 23, 59, 59, tzinfo=EAST)
CASES = {
    "order": lambda: places(order(LINES)),
    "order without lines": lambda: places(order([])),
    "order of 1000 lines": lambda: places(order(
        [line("article %d" % i, i, "0.5", ["a", "b"], "EUR") for i in range(1, 1001)])),
    "optional element absent": lambda: places(order([], express=None)),
    "nil element": lambda: places(order([], remark=Nil), order([], remark=None)),
    "empty element that may be nil": lambda: places(order([], remark="")),
    "no values": lambda: echoes(None, []),
    "string": lambda: echoes("text", ["Hello, world"]),
    "string: empty": lambda: echoes("text", ["a", "", "b"]),
    "string: nil": lambda: echoes("text", ["a", Nil, "b"], ["a", None, "b"]),
    "string: entities":
        lambda: echoes("text", ["<tag attr=\"v\">Tom & 'Jerry' &amp; &#65; ]]></tag>"]),
    "string: blanks": lambda: echoes("text", ["  two leading, two trailing  ", "\t", "   "]),
    "string: line breaks": lambda: echoes("text", ["a\nb\r\nc\rd\n"]),
    "string: all of Unicode": lambda: echoes("text", [all_of_unicode()]),
    "long": lambda: echoes("count", [0, -1, 2147483648, 2**63 - 1, -2**63]),
    "double": lambda: echoes("number", [0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324]),
    "double: INF and NaN": lambda: echoes("number", [math.inf, -math.inf, math.nan]),
    "decimal": lambda: echoes("decimal", [Decimal("17.25"), Decimal("-123456789012.125")]),
    "decimal of 33 digits":
        lambda: echoes("decimal", [Decimal("-123456789012345678901234567890.125")]),
    "boolean": lambda: echoes("flag", [True, False, True]),
    "dateTime": lambda: echoes("moment", [MOMENT, datetime(1999, 2, 28, tzinfo=timezone.utc)]),
    "dateTime: fraction": lambda: echoes("moment", [MOMENT.replace(microsecond=250000)]),
    "base64": lambda: echoes("bytes", [bytes(range(256)), b"a"]),
    "fault": plain_fault,
    "fault with typed detail": detailed_fault,
    "unknown operation": unknown_operation,
}

for name, case in CASES.items():
    try:
        result = case()
    except Exception as error:  # each is the finding of its case
        result = "%s: %s" % (type(error).__name__, error)
    print(name, " ".join(result.split()), sep="\t")
