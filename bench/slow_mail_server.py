"""slow_mail_server.py MODE MEGABYTES_A_SECOND [CERTIFICATE]   takes one mail on loopback, slowly.

Prints its port, and at the end how many bytes the message had. Modes: plain, starttls, tls; the
certificate's key stands beside it, NAME.key.
"""

import socket
import ssl
import sys
import time


def answer(peer, text):
    peer.sendall(text.encode() + b"\r\n")


def line_of(peer):
    line = b""
    while not line.endswith(b"\n"):
        byte = peer.recv(1)
        if not byte:
            sys.exit(f"The connection ended behind {line!r}.")
        line += byte
    return line.strip().upper()


def take_message(peer, rate):
    size, tail, start = 0, b"", time.monotonic()
    while not tail.endswith(b"\r\n.\r\n"):
        piece = peer.recv(65536)
        if not piece:
            sys.exit(f"The connection ended behind {size} bytes of the message.")
        size += len(piece)
        tail = (tail + piece)[-5:]
        time.sleep(max(0.0, size / rate - (time.monotonic() - start)))
    return size


def serve(peer, mode, rate, context):
    if mode == "tls":
        peer = context.wrap_socket(peer, server_side=True)
    answer(peer, "220 slow")
    while True:
        line = line_of(peer)
        if line == b"STARTTLS":
            answer(peer, "220 go")
            peer = context.wrap_socket(peer, server_side=True)
        elif line.startswith(b"EHLO"):
            answer(peer, "250-slow\r\n250 STARTTLS")
        elif line == b"DATA":
            answer(peer, "354 go on")
            print(take_message(peer, rate), flush=True)
            answer(peer, "250 taken")
        elif line == b"QUIT":
            answer(peer, "221 bye")
            return
        else:
            answer(peer, "250 fine")


def listener():
    """Ports of the settings end at 32767."""
    for port in range(22000, 32000):
        try:
            return socket.create_server(("127.0.0.1", port), backlog=1)
        except OSError:
            pass
    sys.exit("No port is free.")


def main(mode, rate, certificate=None):
    context = None
    if mode != "plain":
        context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        context.load_cert_chain(certificate, certificate.replace(".pem", ".key"))
    server = listener()
    server.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 65536)
    print(server.getsockname()[1], flush=True)
    serve(server.accept()[0], mode, float(rate) * 1e6, context)


main(*sys.argv[1:])
