"""Relays on loopback: a real SMTP server with whatever it is asked for, and one that misbehaves at a chosen word."""
import logging
import pathlib
import socket
import ssl
import subprocess
import threading
import warnings

from aiosmtpd.controller import Controller
from aiosmtpd.smtp import SMTP, AuthResult

# What the server says of certificates that were refused.
logging.getLogger("mail.log").setLevel(logging.CRITICAL)

USER, PASSWORD = "puerta@casa.example", "mitad-señal"


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def make_certificate(folder, names):
    """A certificate that signs itself, for these names ("DNS:…" or "IP:…"): the files of it and of its key."""
    certificate, key = pathlib.Path(folder) / "relay.pem", pathlib.Path(folder) / "relay.key"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=relay",
                    "-addext", "subjectAltName=" + ",".join(names), "-out", certificate, "-keyout", key],
                   check=True, capture_output=True)
    return certificate, key


def context_of(certificate, key):
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    return context


class Relay:
    """A real server. `refusals` are answers by recipient; `log_in` asks for USER and PASSWORD."""

    def __init__(self, log_in=False, start_tls=None, tls=None, refusals=None):
        self.mails, self.recipients_tried, self.log_ins, self.encrypted = [], [], [], []
        self.refusals = refusals or {}
        options = {}
        if log_in:
            options = {"authenticator": self.authenticate, "auth_required": True, "auth_require_tls": False}
        if start_tls:
            options |= {"tls_context": start_tls, "require_starttls": True}
        self.port = free_port()
        relay = self

        class Server(Controller):
            def factory(self):
                with warnings.catch_warnings():
                    warnings.simplefilter("ignore")  # of a log-in without TLS, as small relays have it
                    return SMTP(self.handler, enable_SMTPUTF8=True, **options)

        self.controller = Server(relay, hostname="127.0.0.1", port=self.port, ssl_context=tls)

    def __enter__(self):
        self.controller.start()
        return self

    def __exit__(self, *_):
        self.controller.stop()

    def authenticate(self, _server, session, _envelope, mechanism, data):
        self.log_ins.append((mechanism, data.login, data.password))
        self.encrypted.append(session.ssl is not None)
        return AuthResult(success=(data.login, data.password) == (USER.encode(), PASSWORD.encode()))

    # The names are aiosmtpd's.
    async def handle_RCPT(self, _server, _session, envelope, address, _options):
        self.recipients_tried.append(address)
        refusal = self.refusals.get(address)
        if refusal is None:
            envelope.rcpt_tos.append(address)
        return refusal or "250 OK"

    async def handle_DATA(self, _server, session, envelope):
        self.mails.append((envelope.mail_from, list(envelope.rcpt_tos), envelope.content, session.ssl is not None))
        return "250 taken"


HANG, CLOSE = object(), object()
WORDS = ["greeting", "EHLO", "MAIL", "RCPT", "DATA", "content"]
TAKEN = b"250 taken\r\n"
ANSWERS = {"greeting": b"220 rude ESMTP\r\n", "EHLO": b"250 rude\r\n", "MAIL": b"250 ok\r\n", "RCPT": b"250 ok\r\n",
           "DATA": b"354 go on\r\n", "content": TAKEN}


class Rude:
    """A relay of sockets that at the word `at` hangs, closes, or answers with some bytes of its own."""

    def __init__(self, at, instead):
        self.at, self.instead = at, instead
        self.said = b""
        self.connections = 0
        self.over = threading.Event()
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.thread = threading.Thread(target=self.run)

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.over.set()
        # Closing does not wake an accept: a last caller does.
        socket.create_connection(("127.0.0.1", self.port)).close()
        self.thread.join()
        self.listener.close()

    def run(self):
        while True:
            line, _ = self.listener.accept()
            with line:
                if self.over.is_set():
                    return
                self.connections += 1
                try:
                    self.talk(line)
                except OSError:
                    pass  # the station has had enough

    def talk(self, line):
        if not self.answer(line, "greeting"):
            return
        content = False
        file = line.makefile("rb")
        while words := file.readline():
            self.said += words
            word = "content" if content else words[:4].decode("latin-1").upper()
            if content and words != b".\r\n":
                continue
            content = word == "DATA" and self.at != "DATA"
            if not self.answer(line, word) or word == "QUIT":
                return

    def answer(self, line, word):
        if word != self.at:
            line.sendall(ANSWERS.get(word, b"500 what\r\n"))
            return True
        if self.instead is HANG:
            self.over.wait(60)
        elif self.instead is not CLOSE:
            line.sendall(self.instead)
            return True
        return False
