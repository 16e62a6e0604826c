#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Calls the service of orders.wsdl with zeep: zeep_client.py WSDL URL 1.1|1.2. A line for each case:
its name and "ok" or what came back instead."""
import sys

from zeep import Client
from zeep.exceptions import Fault
from zeep.xsd import Nil

from order_cases import Refused, run

SPACE = "urn:example:orders"


def plain(value):
    """What zeep read, as dictionaries and lists."""
    if hasattr(value, "__values__"):
        return {name: plain(member) for name, member in value.__values__.items()}
    return [plain(item) for item in value] if isinstance(value, list) else value


def nilled(value):
    """None is left out by zeep, Nil is written."""
    return Nil if value is None else value


class Peer:
    def __init__(self, wsdl, url, version):
        self.client = Client(wsdl)
        binding = "Orders11" if version == "1.1" else "Orders12"
        self.service = self.client.create_service("{%s}%s" % (SPACE, binding), url)
        self.url = url
        self.type = "text/xml" if version == "1.1" else "application/soap+xml"

    def call(self, work):
        try:
            return plain(work())
        except Fault as fault:
            detail = fault.detail
            if detail is not None:
                detail = plain(self.client.wsdl.types.deserialize(detail[0]))
            raise Refused(fault.code, fault.message, detail) from fault

    def place(self, order):
        sent = {**order, "remark": nilled(order["remark"])}
        return self.call(lambda: self.service.placeOrder(order=sent))

    def echo(self, values):
        sent = {**values, "text": [nilled(text) for text in values["text"]]}
        return self.call(lambda: self.service.echoValues(values=sent))

    def cancel(self, number):
        return self.call(lambda: self.service.cancelOrder(number=number))

    def burn(self):
        """zeep calls what the WSDL has; the message is made from one of those."""
        message = self.client.create_message(self.service, "cancelOrder", number="A")
        for element in list(message.iter("{%s}cancelOrder" % SPACE)):
            element.tag = "{%s}burnOrder" % SPACE
        answer = self.client.transport.post_xml(self.url, message, {"Content-Type": self.type})
        binding = self.service._binding
        operation = binding.get("cancelOrder")
        return self.call(lambda: binding.process_reply(self.client, operation, answer))


wsdl, url, version = sys.argv[1:]
run(Peer(wsdl, url, version), version)
