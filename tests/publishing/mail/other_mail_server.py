"""other_mail_server.py FOLDER   a mail server on loopback, by other people than that of mail_server.py.

Prints its port, and keeps each message that it takes as mail_server.py does. It ends when its
standard input does.
"""

import pathlib
import sys

from twisted.internet import defer, protocol, reactor, stdio
from twisted.mail import smtp
from zope.interface import implementer

folder = pathlib.Path(sys.argv[1])


@implementer(smtp.IMessage)
class Message:
    def __init__(self, sender, recipient):
        self.envelope = f"{sender}\n{recipient}"
        self.lines = []

    def lineReceived(self, line):
        self.lines.append(line + b"\r\n")

    def eomReceived(self):
        (folder / "message").write_bytes(b"".join(self.lines))
        (folder / "envelope").write_text(self.envelope)
        return defer.succeed(None)

    def connectionLost(self):
        self.lines = []


@implementer(smtp.IMessageDelivery)
class Delivery:
    def receivedHeader(self, helo, origin, recipients):
        return b"Received: by a test"

    def validateFrom(self, helo, origin):
        self.sender = origin
        return origin

    def validateTo(self, user):
        return lambda: Message(self.sender, user.dest)


class Server(protocol.ServerFactory):
    def buildProtocol(self, address):
        session = smtp.ESMTP()
        session.factory = self
        session.delivery = Delivery()
        return session


class EndOfInput(protocol.Protocol):
    def connectionLost(self, reason):
        reactor.stop()


listener = reactor.listenTCP(0, Server(), interface="127.0.0.1")
stdio.StandardIO(EndOfInput())
print(listener.getHost().port, flush=True)
reactor.run()
