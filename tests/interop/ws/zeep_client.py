#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Calls the service of greeter.wsdl with zeep, its WS-Addressing and its UsernameToken: zeep_client.py
WSDL URL 1.1|1.2. A line for each case: its name and "ok" or what came back instead."""
import sys
from datetime import datetime, timedelta, timezone

from lxml.builder import ElementMaker
from lxml.etree import QName
from zeep import Client, Plugin, Transport
from zeep.exceptions import Fault
from zeep.wsa import WsAddressingPlugin
from zeep.wsse.username import UsernameToken

SPACE = "urn:example:greeter"
ACTION = SPACE + "/greet"
ADDRESSING = "http://www.w3.org/2005/08/addressing"
SECURITY = "http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-"
WSSE = SECURITY + "secext-1.0.xsd"
WSU = SECURITY + "utility-1.0.xsd"
WSA = ElementMaker(namespace=ADDRESSING, nsmap={"wsa": ADDRESSING})
STAMP = ElementMaker(namespace=WSU, nsmap={"wsu": WSU})
USER = "ann"
PASSWORD = "s3cr\u00e9t & <\u6f22>"
NAME = "J\u00fcrgen & <Zo\u00eb>"
OLD = timedelta(hours=1)
FAILED = QName(WSSE, "FailedAuthentication")
EXPIRED = QName(WSU, "MessageExpired")


class Wire(Plugin):
    """Keeps what goes over the wire; states another HTTP action if there is one."""

    def __init__(self):
        self.action = None

    def egress(self, envelope, headers, operation, options):
        self.sent = envelope
        if self.action:
            headers = {name: value.replace(ACTION, self.action) for name, value in headers.items()}
        return envelope, headers

    def ingress(self, envelope, headers, operation):
        self.received = envelope
        return envelope, headers


class Repeating(Transport):
    """Sends each message as often as `times` says; the last answer is the answer."""

    times = 1

    def post(self, address, message, headers):
        self.answers = [super(Repeating, self).post(address, message, headers)
                        for _ in range(self.times)]
        return self.answers[-1]


def compare(wanted, found):
    return "ok" if wanted == found else "wanted %s, came back %s" % (wanted, found)


def now():
    return datetime.now(timezone.utc)


def stamp(created, lifetime=timedelta(minutes=5)):
    """zeep takes a Timestamp as an element."""
    form = "%Y-%m-%dT%H:%M:%SZ"
    return STAMP.Timestamp(STAMP.Created(created.strftime(form)),
                           STAMP.Expires((created + lifetime).strftime(form)))


def plain(user=USER, password=PASSWORD, **options):
    return UsernameToken(user, password, **options)


def digest(user=USER, password=PASSWORD, **options):
    return UsernameToken(user, password, use_digest=True, **options)


class OnlyStamp:
    """A Security entry with a Timestamp alone, made from zeep's for a user."""

    def apply(self, envelope, headers):
        envelope, headers = plain(timestamp_token=stamp(now())).apply(envelope, headers)
        for token in list(envelope.iter("{%s}UsernameToken" % WSSE)):
            token.getparent().remove(token)
        return envelope, headers

    def verify(self, envelope):
        pass


class Peer:
    def __init__(self, wsdl, url, version):
        self.wire = Wire()
        self.transport = Repeating()
        self.addressing = WsAddressingPlugin()
        self.client = Client(wsdl, transport=self.transport, plugins=[self.addressing, self.wire])
        binding = "Greeter11" if version == "1.1" else "Greeter12"
        self.service = self.client.create_service("{%s}%s" % (SPACE, binding), url)

    def call(self, token, entries=()):
        self.client.wsse = token
        return self.service.greet(name=NAME, _soapheaders=list(entries))

    def greets(self, token, entries=()):
        return compare("Hello, %s, from %s" % (NAME, USER), self.call(token, entries))

    def refuses(self, code, token, entries=()):
        """"ok" for a fault with that code, in a subcode where the version has those, which zeep reads the
        same way."""
        try:
            return "no fault, greeted: " + self.call(token, entries)
        except Fault as fault:
            found = fault.subcodes[-1] if fault.subcodes else self.resolved(fault.code)
            return compare(code, found)

    def resolved(self, code):
        prefix, _, name = code.rpartition(":")
        element = next(self.wire.received.iter("faultcode"))
        return QName(element.nsmap[prefix or None], name)

    def text(self, envelope, name):
        return envelope.findtext("*/{%s}%s" % (ADDRESSING, name))

    def relates(self, action):
        """"ok" when what came back last is addressed as an answer to what was sent last."""
        names = ["To", "Action", "RelatesTo"]
        wanted = [ADDRESSING + "/anonymous", action, self.text(self.wire.sent, "MessageID")]
        return compare(wanted, [self.text(self.wire.received, name) for name in names])


def sent_twice(peer):
    peer.transport.times = 2
    result = peer.refuses(FAILED, digest())
    peer.transport.times = 1
    return compare(200, peer.transport.answers[0].status_code) if result == "ok" else result


def without_addressing(peer):
    peer.client.plugins.remove(peer.addressing)
    result = peer.greets(digest())
    peer.client.plugins.insert(0, peer.addressing)
    found = [child.tag for child in peer.wire.received.iterfind("{*}Header/*")]
    return compare([], found) if result == "ok" else result


def answer_relates(peer):
    result = peer.greets(digest())
    return peer.relates(ACTION + "Response") if result == "ok" else result


def fault_relates(peer):
    result = peer.refuses(FAILED, plain(password="wrong"))
    return peer.relates(ADDRESSING + "/soap/fault") if result == "ok" else result


def reply_to(address, *parameters):
    return WSA.ReplyTo(WSA.Address(address), *parameters)


def parameter_returns(peer):
    """zeep writes header entries that it is given."""
    ticket = ElementMaker(namespace=SPACE).ticket("a <1>")
    result = peer.greets(digest(), [reply_to(ADDRESSING + "/anonymous",
                                             WSA.ReferenceParameters(ticket))])
    found = peer.wire.received.find("*/{%s}ticket" % SPACE)
    if result != "ok" or found is None:
        return "no parameter: " + result
    return compare(("a <1>", "true"),
                   (found.text, found.get("{%s}IsReferenceParameter" % ADDRESSING)))


def answer_elsewhere(peer):
    return peer.refuses(QName(ADDRESSING, "OnlyAnonymousAddressSupported"), digest(),
                        [reply_to("http://127.0.0.1:9/elsewhere")])


def other_action(peer):
    peer.wire.action = SPACE + "/leave"
    result = peer.refuses(QName(ADDRESSING, "ActionMismatch"), digest())
    peer.wire.action = None
    return result


CASES = {
    "password": lambda peer: peer.greets(plain()),
    "digest": lambda peer: peer.greets(digest()),
    "digest and timestamp":
        lambda peer: peer.greets(digest(zulu_timestamp=True, timestamp_token=stamp(now()))),
    "wrong password": lambda peer: peer.refuses(FAILED, plain(password="wrong")),
    "wrong digest": lambda peer: peer.refuses(FAILED, digest(password="wrong")),
    "unknown user": lambda peer: peer.refuses(FAILED, digest(user="bob")),
    "no user": lambda peer: peer.refuses(FAILED, OnlyStamp()),
    "digest sent twice": sent_twice,
    "old digest": lambda peer: peer.refuses(EXPIRED, digest(created=now() - OLD)),
    "old timestamp":
        lambda peer: peer.refuses(EXPIRED, digest(timestamp_token=stamp(now() - OLD))),
    "no addressing": without_addressing,
    "answer relates to the request": answer_relates,
    "fault relates to the request": fault_relates,
    "reference parameter comes back": parameter_returns,
    "answer wanted elsewhere": answer_elsewhere,
    "action of another message": other_action,
}

wsdl, url, version = sys.argv[1:]
peer = Peer(wsdl, url, version)
for name, case in CASES.items():
    try:
        result = case(peer)
    except Exception as error:  # each is the finding of its case
        result = "%s: %s" % (type(error).__name__, error)
    print(name, " ".join(result.split()), sep="\t")
