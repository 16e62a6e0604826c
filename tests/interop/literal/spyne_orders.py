# SPDX-License-Identifier: MIT
"""What orders.wsdl describes, in spyne's classes."""
from spyne import (Boolean, ByteArray, ComplexModel, DateTime, Decimal, Double, Fault, Integer,
                   Integer64, ServiceBase, Unicode, XmlAttribute, rpc)

SPACE = "urn:example:orders"


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
