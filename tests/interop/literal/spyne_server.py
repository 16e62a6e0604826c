#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The service of orders.wsdl with spyne, on a port of its own choice, which it prints: SOAP 1.1 at the
path /1.1, validated with the schema that spyne makes of the classes, SOAP 1.2 at /1.2."""
import logging
from wsgiref.simple_server import WSGIRequestHandler, make_server

from spyne import Application
from spyne.protocol.soap import Soap11, Soap12
from spyne.server.wsgi import WsgiApplication

from spyne_orders import SPACE, Orders

LARGEST = 8 << 20


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
