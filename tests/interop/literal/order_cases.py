# SPDX-License-Identifier: MIT
"""The cases of orders.wsdl for the clients in Python: values as dictionaries, and how they are compared."""
import math
from datetime import datetime, timedelta, timezone
from decimal import Decimal

EAST = timezone(timedelta(hours=1))
MOMENT = datetime(2026, 12, 31, 23, 59, 59, tzinfo=EAST)
NAMES = ["text", "count", "number", "decimal", "flag", "moment", "bytes"]


class NotPossible(Exception):
    """The peer has no way to try this."""


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


def line(article, amount, price, tags, currency):
    return {"article": article, "amount": amount, "price": Decimal(price), "tag": tags,
            "currency": currency}


def order(lines, **changes):
    return {"customer": "Jürgen & Zoë <Ltd> 漢字 😀", "placed": MOMENT, "express": True,
            "remark": "soon", "line": lines, "number": 'A-<1> & "2"', **changes}


LINES = [line("nut", 3, "17.25", ["small", "steel"], "EUR"), line("bolt", 40, "0.50", [], None)]


def is_character(code):
    return code & 0xFFFE != 0xFFFE and not 0xFDD0 <= code <= 0xFDEF


def all_of_unicode():
    """Every character that XML can carry, but the carriage return, which has a case of its own."""
    codes = [0x9, 0xA, *range(0x20, 0xD800), *range(0xE000, 0x110000)]
    return "".join(chr(code) for code in codes if is_character(code))


class Cases:
    """`peer` calls the service: place(order), echo(values) and cancel(number) answer the element with the
    results as a dictionary, None for nil, or raise Refused; burn() calls what the service does not have."""

    def __init__(self, peer, version):
        self.peer = peer
        self.codes = ({"Client": "Client", "Server": "Server"} if version == "1.1" else
                      {"Client": "Sender", "Server": "Receiver"})

    def places(self, sent):
        """Sends an order and expects it back with its sums."""
        lines = sent["line"]
        return compare({"order": sent, "amount": sum(each["amount"] for each in lines),
                        "cost": float(sum(each["amount"] * each["price"] for each in lines))},
                       self.peer.place(sent))

    def echoes(self, name, sent):
        values = {each: [] for each in NAMES}
        if name:
            values[name] = sent
        return compare({"values": values}, {"values": self.peer.echo(values)})

    def refuses(self, code, reason, call, detail=None):
        try:
            found = call()
        except Refused as refused:
            return compare({"code": self.codes[code], "reason": reason, "detail": detail},
                           {"code": refused.code, "reason": refused.reason,
                            "detail": refused.detail})
        return "no fault, came back " + shown(found)

    def all(self):
        places, echoes, refuses, peer = self.places, self.echoes, self.refuses, self.peer
        return {
            "order": lambda: places(order(LINES)),
            "order without lines": lambda: places(order([])),
            "order of 1000 lines": lambda: places(order(
                [line("article %d" % i, i, "0.5", ["a", "b"], "EUR") for i in range(1, 1001)])),
            "optional element absent": lambda: places(order([], express=None)),
            "nil element": lambda: places(order([], remark=None)),
            "empty element that may be nil": lambda: places(order([], remark="")),
            "no values": lambda: echoes(None, []),
            "string": lambda: echoes("text", ["Hello, world"]),
            "string: empty": lambda: echoes("text", ["a", "", "b"]),
            "string: nil": lambda: echoes("text", ["a", None, "b"]),
            "string: entities":
                lambda: echoes("text", ["<tag attr=\"v\">Tom & 'Jerry' &amp; &#65; ]]></tag>"]),
            "string: blanks":
                lambda: echoes("text", ["  two leading, two trailing  ", "\t", "   "]),
            "string: line breaks": lambda: echoes("text", ["a\nb\r\nc\rd\n"]),
            "string: all of Unicode": lambda: echoes("text", [all_of_unicode()]),
            "long": lambda: echoes("count", [0, -1, 2147483648, 2**63 - 1, -2**63]),
            "double": lambda: echoes("number", [0.5, -17.25, 0.1, 0.1 + 0.2, 1.5e300, 5e-324]),
            "double: INF and NaN": lambda: echoes("number", [math.inf, -math.inf, math.nan]),
            "decimal": lambda: echoes("decimal", [Decimal("17.25"), Decimal("-123456789012.125")]),
            "decimal of 33 digits":
                lambda: echoes("decimal", [Decimal("-123456789012345678901234567890.125")]),
            "boolean": lambda: echoes("flag", [True, False, True]),
            "dateTime":
                lambda: echoes("moment", [MOMENT, datetime(1999, 2, 28, tzinfo=timezone.utc)]),
            "dateTime: fraction": lambda: echoes("moment", [MOMENT.replace(microsecond=250000)]),
            "base64": lambda: echoes("bytes", [bytes(range(256)), b"a"]),
            "fault": lambda: refuses("Server", "Nothing of <nut> & co.", lambda: peer.place(
                order([line("nut", 0, "1", [], None)]))),
            "fault with typed detail": lambda: refuses(
                "Client", "No order <B & <é>> & co.", lambda: peer.cancel("B & <é>"),
                {"number": "B & <é>", "orders": 42}),
            "unknown operation": lambda: refuses(
                "Client", "There is no operation burnOrder", peer.burn),
        }


class Refused(Exception):
    """A fault: the local name of its code, its reason, and its detail as a dictionary or None."""

    def __init__(self, code, reason, detail):
        super().__init__("fault %s: %s" % (code, reason))
        self.code, self.reason, self.detail = code.rpartition(":")[2], reason, detail


def run(peer, version):
    """Prints a line for each case: its name and "ok" or what came back instead."""
    for name, case in Cases(peer, version).all().items():
        try:
            result = case()
        except NotPossible as why:
            result = "n/a: %s" % why
        except Exception as error:  # each is the finding of its case
            result = "%s: %s" % (type(error).__name__, error)
        print(name, " ".join(result.split()), sep="\t")
