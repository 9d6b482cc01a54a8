"""mail_server.py FOLDER MODE [CERTIFICATE]   a mail server on loopback for one test.

Prints its port. Each message that it takes becomes FOLDER/message (its bytes) and FOLDER/envelope
(sender, then recipients, one a line). Modes: plain, starttls, tls, and login, which is tls that asks
for name and password one by one; all but plain want the user "me" with the password "secret". It
ends when its standard input does.
"""

import json
import pathlib
import ssl
import sys

from aiosmtpd.controller import Controller
from aiosmtpd.smtp import AuthResult


class Keeper:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)

    async def handle_DATA(self, server, session, envelope):
        (self.folder / "message").write_bytes(envelope.content)
        (self.folder / "envelope").write_text("\n".join([envelope.mail_from, *envelope.rcpt_tos]))
        return "250 2.0.0 Taken"

    async def handle_RCPT(self, server, session, envelope, address, options):
        if address.startswith("nobody"):
            return "550 5.1.1 No such mailbox"
        envelope.rcpt_tos.append(address)
        return "250 2.1.5 OK"


def authenticate(server, session, envelope, mechanism, data):
    return AuthResult(success=(data.login, data.password) == (b"me", b"secret"), handled=False)


def main(folder, mode, certificate=None):
    options = {"hostname": "127.0.0.1", "port": 0, "data_size_limit": 40 * 1024 * 1024}
    if mode != "plain":
        context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        context.load_cert_chain(certificate, certificate.replace(".pem", ".key"))
        options |= {"authenticator": authenticate, "auth_required": True}
        if mode == "starttls":
            options |= {"tls_context": context, "require_starttls": True}
        else:
            options |= {"ssl_context": context, "auth_require_tls": False}
        if mode == "login":
            options["auth_exclude_mechanism"] = ["PLAIN"]
    controller = FreePort(Keeper(folder), **options)
    controller.start()
    print(controller.server.sockets[0].getsockname()[1], flush=True)
    sys.stdin.read()
    controller.stop()


class FreePort(Controller):
    """On whatever port is free, which the class itself takes for none."""

    def _trigger_server(self):
        self.port = self.server.sockets[0].getsockname()[1]
        super()._trigger_server()


if len(sys.argv) == 3 and sys.argv[1] == "--parse":
    import email
    import email.policy

    parsed = email.message_from_bytes(pathlib.Path(sys.argv[2], "message").read_bytes(),
                                      policy=email.policy.default)
    found = {name.lower(): str(parsed[name]) for name in parsed.keys()}
    found["body"] = parsed.get_body().get_content()
    for part in parsed.iter_attachments():
        found["name"] = part.get_filename()
        found["type"] = part.get_content_type()
        pathlib.Path(sys.argv[2], "attachment").write_bytes(part.get_content())
    found["defects"] = " ".join(repr(one) for part in parsed.walk() for one in part.defects)
    print(json.dumps(found))
else:
    main(*sys.argv[1:])
