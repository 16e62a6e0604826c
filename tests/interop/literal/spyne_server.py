#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The service of orders.wsdl with spyne, on a port of its own choice, which it prints: SOAP 1.1 at the
path /1.1, validated with the schema that spyne makes of the classes, SOAP 1.2 at /1.2."""
import logging
from wsgiref.simple_server import WSGIRequestHandler, make_server

from spyne import (Application, Boolean, ByteArray, ComplexModel, DateTime, Decimal, Double, Fault,
                   Integer, Integer64, ServiceBase, Unicode, XmlAttribute, rpc)
from spyne.protocol.soap import Soap11, Soap12
from spyne.server.wsgi import WsgiApplication

SPACE = "urn:example:orders"
LARGEST = 8 << 20


def qualified(name):
    return "{%s}%s" % (SPACE, name)


def repeated(kind, **more):
    return kind.customize(min_occurs=0, max_occurs="unbounded", **more)


class Line(ComplexModel):
    __namespace__ = SPACE
    _type_info = [("article", Unicode(min_occurs=1)), ("amount", Integer(min_occurs=1)),
                  ("price", Decimal(min_occurs=1)), ("tag", repeated(Unicode)),
                  ("currency", XmlAttribute(Unicode))]


class Order(ComplexModel):
    __namespace__ = SPACE
    _type_info = [("customer", Unicode(min_occurs=1)), ("placed", DateTime(min_occurs=1)),
                  ("express", Boolean(min_occurs=0)),
                  ("remark", Unicode(min_occurs=1, nillable=True)), ("line", repeated(Line)),
                  ("number", XmlAttribute(Unicode, use="required"))]


class Values(ComplexModel):
    __namespace__ = SPACE
    _type_info = [("text", repeated(Unicode, nillable=True)), ("count", repeated(Integer64)),
                  ("number", repeated(Double)), ("decimal", repeated(Decimal)),
                  ("flag", repeated(Boolean)), ("moment", repeated(DateTime)),
                  ("bytes", repeated(ByteArray))]


class Orders(ServiceBase):
    @rpc(Order, _returns=(Order, Integer64, Double),
         _out_variable_names=("order", "amount", "cost"))
    def placeOrder(ctx, order):
        lines = order.line or []
        for line in lines:
            if line.amount == 0:
                raise Fault("Server", "Nothing of <%s> & co." % line.article)
        return (order, sum(line.amount for line in lines),
                float(sum(line.amount * line.price for line in lines)))

    @rpc(Values, _returns=Values, _out_variable_name="values")
    def echoValues(ctx, values):
        return values

    @rpc(Unicode, _returns=Unicode, _out_variable_name="number")
    def cancelOrder(ctx, number):
        unknown = {qualified("unknownOrder"): {qualified("number"): number,
                                               qualified("orders"): "42"}}
        raise Fault("Client", "No order <%s> & co." % number, detail=unknown)


class Quiet(WSGIRequestHandler):
    def log_message(self, *arguments):
        pass


def application(protocol, validator):
    return WsgiApplication(Application([Orders], SPACE, name="Orders",
                                       in_protocol=protocol(validator=validator),
                                       out_protocol=protocol()), max_content_length=LARGEST)


logging.disable(logging.CRITICAL)
# Without validation in SOAP 1.2: this peer cannot write what it finds as a fault of that version.
applications = {"/1.1": application(Soap11, "lxml"), "/1.2": application(Soap12, None)}


def dispatch(environment, start_response):
    return applications[environment["PATH_INFO"]](environment, start_response)


server = make_server("127.0.0.1", 0, dispatch, handler_class=Quiet)
print("listening on http://127.0.0.1:%d/" % server.server_port, flush=True)
server.serve_forever()
