"""Alerts through a real SMTP server on loopback, and through relays that refuse, hang and go in the middle.

What arrives is compared header by header. Nothing waits longer than a connection may take.
"""
import concurrent.futures
import datetime
import email
import email.policy
import email.utils
import os
import pathlib
import re
import sys
import time

from mail_relays import CLOSE, HANG, PASSWORD, USER, WORDS, Relay, Rude, context_of, make_certificate

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "scenarios"))

import station  # noqa: E402  (found through the line above)
from station import mixed, screen_state  # noqa: E402

F12 = 123
SILENCE = 10  # seconds that a relay may be silent
GRACE = 3     # for looking after it once a second, on a busy machine
PROXIES = {name: "http://127.0.0.1:9" for name in ("all_proxy", "ALL_PROXY", "smtp_proxy", "http_proxy")}

SUBJECT, TEXT = "¡Señal de pánico!", "Asalto en la portería; ñandú = 100 €"
FIRST, SECOND = "uno@casa.example", "dos@casa.example"
BEHIND = "\r\n\r\nEnviado desde mi Vintoral 10.25\r\n\r\n"


def panic(*values):
    """The fourteen records of the seven values."""
    records = []
    for value in (*values, *[""] * (7 - len(values))):
        pieces = [value[at:at + 12] for at in range(0, 48, 12)]
        records += [mixed(*pieces[:2]), mixed(*pieces[2:])]
    return records


class Mail(station.DrivenDay):
    def settings(self, port, **more):
        values = {"Servidor": "127.0.0.1", "Puerto": port, "De": USER, "Autenticacion": "no", **more}
        self.folder.write("Objetos/Correo.INI",
                          "".join(f"{name} = {value}\r\n" for name, value in values.items()).encode("cp1252"))

    def log_in(self, port, **more):
        first, second = PASSWORD.split("-")
        self.settings(port, Autenticacion="si", Usuario=USER, Clave1=first, Clave2=second, **more)

    def armed(self, *values, environment=None):
        """A station that sends in earnest, with these seven values and its alert armed."""
        self.folder.write("Recursos/Vintoral.DAT", screen_state(marks=mixed(None, None, number1=1), panic=panic(*values)))
        gate = self.process(environment)
        self.start(gate, mail="smtp")
        if gate.box:  # the welcome of the first start
            gate.answer("ok")
        gate.advance(3000)
        self.assertTrue(gate.shown("ImgPanico"))
        return gate

    def fire(self, gate):
        """F12: whether the alert went out, and how long that took."""
        begun = time.monotonic()
        reply = gate.key(F12)
        taken = time.monotonic() - begun
        event, = [event for event in reply["events"] if event["event"] == "mail"]
        if event["sent"]:
            self.assertIsNone(reply["waiting"])
        else:
            self.assertEqual((reply["waiting"], gate.caption("LblInfo(3)")), ({"wait": 3000}, "IMPOSIBLE ENVIAR"))
            self.assertEqual(station.kinds(reply)[-1], "beep")
            gate.advance(3000)
        self.assertEqual((gate.caption("LblInfo(3)"), gate.get("ImgPanico")["Enabled"]), ("", True))
        return event["sent"], taken

    def errors(self):
        file = self.root / "stderr"
        return file.read_text("utf-8") if file.exists() else ""

    def tearDown(self):
        for half in (*PASSWORD.split("-"), PASSWORD):
            self.assertNotIn(half, self.errors())


class Arrives(Mail):
    def test_header_by_header(self):
        with Relay() as relay:
            self.settings(relay.port)
            gate = self.armed(SUBJECT, TEXT, FIRST, "", SECOND, environment=PROXIES)
            self.assertEqual(self.fire(gate)[0], True)
        (sender, recipients, content, _), = relay.mails
        self.assertEqual((sender, recipients), (USER, [FIRST, SECOND]))
        self.assertTrue(content.isascii())
        mail = email.message_from_bytes(content, policy=email.policy.SMTP)
        self.assertEqual(sorted(name.title() for name in mail.keys()),
                         ["Content-Type", "Date", "From", "Message-Id", "Mime-Version", "Subject", "To"])
        self.assertEqual(mail["Subject"], SUBJECT)
        self.assertEqual(mail["From"], USER)
        self.assertEqual([address.addr_spec for address in mail["To"].addresses], [FIRST, SECOND])
        self.assertEqual(mail["MIME-Version"], "1.0")
        self.assertRegex(mail["Message-ID"], r"^<\d+\.\d+@casa\.example>$")
        age = datetime.datetime.now(datetime.timezone.utc) - email.utils.parsedate_to_datetime(mail["Date"])
        self.assertLess(abs(age.total_seconds()), 60)
        part, = mail.iter_parts()
        self.assertEqual(part.get_content_type(), "text/plain")
        self.assertEqual(part.get_content_charset(), "utf-8")
        self.assertEqual(part.get_payload(decode=True).decode("utf-8"), TEXT + BEHIND)

    def test_two_alerts_are_two_mails(self):
        with Relay() as relay:
            self.settings(relay.port)
            gate = self.armed(SUBJECT, TEXT, FIRST)
            self.assertEqual([self.fire(gate)[0], self.fire(gate)[0]], [True, True])
        names = {re.search(rb"Message-ID: (.*)\r\n", mail[2])[1] for mail in relay.mails}
        self.assertEqual(len(names), 2)

    def test_texts_that_look_like_the_protocols(self):
        with Relay() as relay:
            self.settings(relay.port)
            gate = self.armed("=?UTF-8?Q?no?=", ".", FIRST)
            self.assertTrue(self.fire(gate)[0])
        mail = email.message_from_bytes(relay.mails[0][2], policy=email.policy.SMTP)
        self.assertEqual(mail["Subject"], "=?UTF-8?Q?no?=")
        part, = mail.iter_parts()
        self.assertEqual(part.get_payload(decode=True).decode("utf-8"), "." + BEHIND)

    def test_a_line_break_makes_no_header_and_no_word(self):
        with Relay() as relay:
            self.settings(relay.port)
            gate = self.armed("X\r\nBcc: evil@x.example\r\n\r\nY", "Z", FIRST, "a@b>\r\nRCPT TO:<evil@x.example")
            self.fire(gate)
        mail = email.message_from_bytes(relay.mails[0][2], policy=email.policy.SMTP)
        self.assertIsNone(mail["Bcc"])
        self.assertEqual(mail["Subject"], "X  Bcc: evil@x.example    Y")
        self.assertNotIn("evil@x.example", relay.recipients_tried)
        part, = mail.iter_parts()
        self.assertEqual(part.get_payload(decode=True).decode("utf-8"), "Z" + BEHIND)

    def test_a_driven_ok_and_a_driven_fail_reach_nobody(self):
        with Relay() as relay:
            self.settings(relay.port)
            gate = self.armed(SUBJECT, TEXT, FIRST)
            for mail, sent in (("ok", True), ("fail", False)):
                gate.do("devices", mail=mail)
                self.assertEqual(self.fire(gate)[0], sent)
            self.assertEqual(relay.mails, [])
            gate.do("devices", mail="smtp")
            self.assertTrue(self.fire(gate)[0])
            self.assertEqual(len(relay.mails), 1)


class LogsIn(Mail):
    def test_with_user_and_password(self):
        with Relay(log_in=True) as relay:
            self.log_in(relay.port)
            self.assertTrue(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertEqual([log_in[1:] for log_in in relay.log_ins], [(USER.encode(), PASSWORD.encode())])
        self.assertEqual(len(relay.mails), 1)

    def test_with_a_wrong_password(self):
        with Relay(log_in=True) as relay:
            self.log_in(relay.port, TLS="no")
            self.settings(relay.port, Autenticacion="si", Usuario=USER, Clave1="otra")
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertNotEqual(relay.log_ins, [])
        self.assertEqual(relay.mails, [])
        self.assertNotIn("otra", self.errors())

    def test_not_where_it_is_not_asked_to(self):
        with Relay(log_in=True) as relay:
            self.settings(relay.port, Usuario=USER, Clave1=PASSWORD)
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertEqual((relay.log_ins, relay.mails), ([], []))


class KeepsPrivate(Mail):
    def setUp(self):
        super().setUp()
        self.pair = make_certificate(self.root, ["IP:127.0.0.1"])
        self.context = context_of(*self.pair)

    def believe(self):
        self.folder.write("Objetos/Correo.PEM", self.pair[0].read_bytes())

    def test_starttls(self):
        self.believe()
        with Relay(log_in=True, start_tls=self.context) as relay:
            self.log_in(relay.port, TLS="starttls")
            self.assertTrue(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertEqual((relay.encrypted, relay.mails[0][3]), ([True], True))

    def test_tls_from_the_first_byte(self):
        self.believe()
        with Relay(log_in=True, tls=self.context) as relay:
            self.log_in(relay.port, TLS="si")
            self.assertTrue(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertEqual(len(relay.mails), 1)

    def test_a_certificate_that_nobody_vouches_for(self):
        for how, more in (("starttls", {"start_tls": self.context}), ("si", {"tls": self.context})):
            with self.subTest(how=how), Relay(log_in=True, **more) as relay:
                self.log_in(relay.port, TLS=how)
                self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
                self.assertEqual((relay.log_ins, relay.mails), ([], []))
        self.assertIn("certificate", self.errors())

    def test_a_certificate_of_another_name(self):
        self.believe()
        with Relay(log_in=True, start_tls=self.context) as relay:
            self.log_in(relay.port, TLS="starttls", Servidor="localhost")
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertEqual((relay.log_ins, relay.mails), ([], []))

    def test_a_relay_that_offers_no_tls_is_told_nothing(self):
        with Relay(log_in=True) as relay:
            self.log_in(relay.port, TLS="starttls")
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0])
        self.assertEqual((relay.log_ins, relay.mails, relay.recipients_tried), ([], [], []))


class Refused(Mail):
    def test_one_of_two(self):
        with Relay(refusals={FIRST: "550 nobody of that name"}) as relay:
            self.settings(relay.port)
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST, SECOND))[0])
        self.assertEqual([mail[1] for mail in relay.mails], [[SECOND]])
        self.assertIn("refused 1 of 2 recipients", self.errors())

    def test_all_later_and_once(self):
        grey = "451 4.7.1 come back in five minutes"
        with Relay(refusals={FIRST: grey, SECOND: grey}) as relay:
            self.settings(relay.port)
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST, SECOND))[0])
        self.assertEqual((relay.recipients_tried, relay.mails), ([FIRST, SECOND], []))

    def test_at_any_word(self):
        for word in WORDS:
            # Whoever refuses EHLO is greeted in the old way.
            for answer in (b"421 4.3.2 not now\r\n", b"554 5.7.1 never\r\n"):
                with self.subTest(word=word, answer=answer), Rude(word, answer) as relay:
                    self.settings(relay.port)
                    sent, taken = self.fire(self.armed(SUBJECT, TEXT, FIRST))
                    self.assertEqual((sent, relay.connections), (False, 1))
                    self.assertLess(taken, GRACE)

    def test_nobody_there(self):
        self.settings(1)
        sent, taken = self.fire(self.armed(SUBJECT, TEXT, FIRST))
        self.assertFalse(sent)
        self.assertLess(taken, GRACE)

    def test_no_recipient_and_no_relay(self):
        self.settings(1)
        self.assertFalse(self.fire(self.armed(SUBJECT, TEXT))[0])
        for name in ("", "a b", "a/b", "x@127.0.0.1"):
            self.settings(1, Servidor=name)
            self.assertFalse(self.fire(self.armed(SUBJECT, TEXT, FIRST))[0], name)


class Misbehaves(Mail):
    def one(self, relay, index):
        """An alert of a gate of its own, so that all of them can wait at once."""
        day = type(self)("run_nothing")
        day.setUp()
        self.addCleanup(day.doCleanups)
        day.settings(relay.port, Servidor="lento.example") if index is None else day.settings(relay.port)
        preload = {"LD_PRELOAD": os.environ["VINTORAL_SLOW_LOOKUP"]} if index is None else None
        return day.fire(day.armed(SUBJECT, TEXT, FIRST, environment=preload))

    def run_nothing(self):
        pass

    def all_of(self, relays):
        with concurrent.futures.ThreadPoolExecutor(len(relays)) as pool:
            return list(pool.map(self.one, relays, range(len(relays))))

    def test_hanging_at_any_word(self):
        relays = [self.enterContext(Rude(word, HANG)) for word in WORDS]
        for word, (sent, taken) in zip(WORDS, self.all_of(relays)):
            with self.subTest(word=word):
                self.assertFalse(sent)
                self.assertGreater(taken, SILENCE - 1)
                self.assertLess(taken, SILENCE + GRACE)

    def test_going_at_any_word(self):
        for word in WORDS:
            with self.subTest(word=word), Rude(word, CLOSE) as relay:
                self.settings(relay.port)
                sent, taken = self.fire(self.armed(SUBJECT, TEXT, FIRST))
                self.assertEqual((sent, relay.connections), (False, 1))
                self.assertLess(taken, GRACE)

    def test_a_relay_that_took_it_and_hangs_then(self):
        with Rude("QUIT", HANG) as relay:
            self.settings(relay.port)
            sent, taken = self.fire(self.armed(SUBJECT, TEXT, FIRST))
        self.assertTrue(sent)
        self.assertLess(taken, GRACE)

    def test_answers_that_are_none(self):
        # No code, and a line longer than any.
        cases = [(word, answer) for word in WORDS for answer in (b"\0\xff\xfe\r\n", b"x" * 1_000_000 + b"\r\n")]
        relays = [self.enterContext(Rude(word, answer)) for word, answer in cases]
        for (word, answer), (sent, taken) in zip(cases, self.all_of(relays)):
            with self.subTest(word=word, answer=answer[:3]):
                self.assertFalse(sent)
                self.assertLess(taken, SILENCE + GRACE)

    def test_a_name_that_is_looked_up_for_ever(self):
        with Rude("greeting", HANG) as relay:
            sent, taken = self.one(relay, None)
        self.assertEqual((sent, relay.connections), (False, 0))
        self.assertGreater(taken, SILENCE - 1)
        self.assertLess(taken, SILENCE + GRACE)



if __name__ == "__main__":
    station.main()
