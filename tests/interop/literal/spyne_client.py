#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Calls the service of orders.wsdl with spyne's client: spyne_client.py URL 1.1|1.2. A line for each case:
its name and "ok" or what came back instead."""
import logging
import sys
import urllib.request

from spyne import Application, Fault
from spyne.client.http import HttpClient
from spyne.protocol.soap import Soap11, Soap12

from order_cases import NotPossible, Refused, run
from spyne_orders import SPACE, Line, Order, Orders, Values, qualified


class ContentType(urllib.request.BaseHandler):
    """spyne's client states no content type, for which urllib says that the request is a form."""
    handler_order = 900  # after urllib's own

    def __init__(self, text):
        self.text = text

    def http_request(self, request):
        request.add_unredirected_header("Content-type", self.text)
        return request


def plain(value):
    """What spyne read, as dictionaries and lists."""
    if isinstance(value, (Order, Line, Values)):
        members = value.get_flat_type_info(type(value))
        return {name: plain(getattr(value, name)) if getattr(value, name) is not None or
                kind.Attributes.max_occurs == 1 else [] for name, kind in members.items()}
    if isinstance(value, (list, tuple)) and not all(isinstance(item, bytes) for item in value):
        return [plain(item) for item in value]
    return value


def detail_of(fault):
    """The detail, which spyne leaves as an element, or None."""
    if fault.detail is None:
        return None
    unknown = fault.detail.find(qualified("unknownOrder"))
    return {"number": unknown.findtext(qualified("number")),
            "orders": int(unknown.findtext(qualified("orders")))}


class Peer:
    def __init__(self, url, version):
        protocol, text = ((Soap11, "text/xml") if version == "1.1" else
                          (Soap12, "application/soap+xml"))
        urllib.request.install_opener(
            urllib.request.build_opener(ContentType(text + "; charset=utf-8")))
        self.service = HttpClient(url, Application([Orders], SPACE, name="Orders",
                                                   in_protocol=protocol(),
                                                   out_protocol=protocol())).service

    def call(self, work):
        try:
            return work()
        except Fault as fault:
            raise Refused(fault.faultcode, fault.faultstring, detail_of(fault)) from fault

    def place(self, order):
        sent = Order(**{**order, "line": [Line(**line) for line in order["line"]]})
        answer = self.call(lambda: self.service.placeOrder(sent))
        return {"order": plain(answer.order), "amount": answer.amount, "cost": answer.cost}

    def echo(self, values):
        sent = Values(**{**values, "bytes": [[each] for each in values["bytes"]]})
        answer = plain(self.call(lambda: self.service.echoValues(sent)))
        return {**answer, "bytes": [b"".join(each) for each in answer["bytes"]]}

    def cancel(self, number):
        return self.call(lambda: self.service.cancelOrder(number))

    def burn(self):
        raise NotPossible("spyne calls the operations of its classes only.")


url, version = sys.argv[1:]
logging.disable(logging.CRITICAL)
run(Peer(url, version), version)
