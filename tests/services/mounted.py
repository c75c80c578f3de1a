"""Two gates on one data folder that the second one reaches through a real mount, which ends and comes back."""
import fcntl
import pathlib
import socket
import struct
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "scenarios" / "withstand"))

import trouble  # noqa: E402  (found through the line above)
from station import (CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, ENTER, GREEN, INSERT, RED, Folder, stamp)  # noqa: E402

# As long as the second gate's tick of the link may take to find a folder that is there again.
BACK_SECONDS = 30
# One operation on a folder that has just gone may wait for the mount's own patience, several times.
LOST_SECONDS = 20


def separate():
    """Mounts, processes and a network of this program's own: whatever it starts and mounts ends with it."""
    trouble.own_mounts("--net", "--pid", "--fork", "--kill-child", "--mount-proc")
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as any_socket:
        up, set_flags = 1, 0x8914
        fcntl.ioctl(any_socket, set_flags, struct.pack("16sh14x", b"lo", up))


def wait_for(what, met, seconds=20):
    limit = time.monotonic() + seconds
    while not met():
        if time.monotonic() > limit:
            raise TimeoutError(f"no {what} within {seconds} seconds")
        time.sleep(0.05)


class Launching:
    """Of a day that starts programs, which end with it."""

    def launch(self, *command, **more):
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, start_new_session=True, **more)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process


class MountedFolder(Launching):
    """The days that any such mount must serve. A subclass gives mount(), break_off() and come_back()."""

    def setUp(self):
        super().setUp()
        self.folder.shared.mkdir(parents=True)
        self.prepare_data(self.folder.shared)
        self.first = self.running(self.folder)
        path = self.mount()
        wait_for("register behind the mount", (path / "Vintoral.ACT").is_file)
        self.other = Folder(self.root / "P02")
        self.other.write("Objetos/Servidor.INI", f"{path} \r\n".encode())
        self.second = self.running(self.other)
        self.assertEqual(self.second.state("NumeroPorteria"), "02")
        self.assertBars(self.second, GREEN)

    def prepare_data(self, folder):
        """Where the data lie, before the first gate starts."""

    def asked(self, gate, number, key, box, *texts):
        """Up to the question: the ficha is typed or called up, and the station asks."""
        if texts:
            gate.fill(number, *texts)
        else:
            gate.call_up(number)
        gate.key(key)
        self.assertBox(gate, box)

    def answered_without_folder(self):
        """The yes to the question when the folder has gone: an answer in bounded time, and the link tells."""
        began = time.monotonic()
        self.second.answer("yes")
        self.assertLess(time.monotonic() - began, LOST_SECONDS)
        self.assertIsNone(self.second.box)
        began = time.monotonic()
        self.second.advance(10000)
        self.assertBars(self.second, RED)
        self.assertEqual(self.second.caption("LblFechaEnt"), "CONECTANDO... ")
        self.assertLess(time.monotonic() - began, LOST_SECONDS)

    def green_again(self):
        self.come_back()
        limit = time.monotonic() + BACK_SECONDS
        while True:
            self.second.advance(3000)
            if self.second.get("LblConexion(0)")["BackColor"] == GREEN:
                break
            self.assertLess(time.monotonic(), limit, "the bars stay red")
            time.sleep(0.25)
        self.assertBars(self.second, GREEN)
        self.settle(self.second)

    def inside(self):
        return {slot.Posicion: slot.Placa for slot in self.rows(self.folder, "ACT") if slot.EnUso}

    def test_a_day_at_both_gates(self):
        first, second = self.first, self.second
        self.assertTrue(self.try_save(second, 501, "FROM2"))
        slot = self.folder.slot(501)
        self.assertEqual((slot.EnUso, slot.Placa, slot.PorteriaEntrada, slot.MarcaEntrada),
                         (-1, "FROM2", "02", stamp("14:00", "20/11/2026")))
        self.assertTrue(self.try_save(first, 1, "FROM1"))
        second.advance(7000)
        for gate in (first, second):
            self.assertEqual([row["Placa"].strip() for row in gate.do("view")["view"]], ["FROM1", "FROM2"])
        # What one gate let in, the other one does not let in again, by number or by plate.
        self.assertEqual(self.try_call_up(second, 1), "inside")
        self.settle(second)
        second.call_up(502)
        second.set("TxtCampo(1)", "from1")
        second.key(ENTER)
        self.assertBox(second, {"title": "Vintoral - Ingreso Denegado", "icon": "critical",
                                "text": "La información digitada ya se encuentra en uso por la ficha 0001."})
        second.answer("ok")
        self.assertTrue(self.try_retire(first, 501))
        self.assertEqual(self.try_call_up(second, 501), "new")
        self.settle(second)
        self.assertTrue(self.try_retire(second, 1))
        for number in range(601, 606):
            self.assertTrue(self.try_save(second, number, f"N{number}"))
            self.assertTrue(self.try_save(first, number - 500, f"N{number - 500}"))
            self.assertTrue(self.try_retire(second, number - 500))
            self.assertTrue(self.try_retire(first, number))
        rows = self.folder.history()
        numbers = [n for number in range(601, 606) for n in (number - 500, number)]
        self.assertEqual([(row.Placa, row.PorteriaEntrada, row.PorteriaSalida, row.Posicion) for row in rows],
                         [("FROM2", "02", "01", 2), ("FROM1", "01", "02", 3)]
                         + [(f"N{n}", *(("02", "01") if n > 500 else ("01", "02")), row)
                            for row, n in enumerate(numbers, start=4)])
        self.assertEqual(self.inside(), {})
        self.assertTrue(self.try_close(second))
        self.assertTrue(self.try_close(first))
        self.legal(self.folder)

    def test_gone_in_the_middle_of_a_save(self):
        self.assertTrue(self.try_save(self.second, 501, "BEFORE"))
        self.asked(self.second, 502, INSERT, CONFIRM_SAVE, "LOST")
        self.break_off()
        self.answered_without_folder()
        self.assertTrue(self.try_save(self.first, 1, "MEANWHILE"), "the main gate has its own folder")
        self.assertEqual(self.inside(), {1: "MEANWHILE", 501: "BEFORE"})
        self.green_again()
        self.assertTrue(self.try_save(self.second, 502, "AGAIN"))
        self.assertEqual(self.inside(), {1: "MEANWHILE", 501: "BEFORE", 502: "AGAIN"})
        self.legal(self.folder)

    def test_gone_in_the_middle_of_a_departure(self):
        self.assertTrue(self.try_save(self.second, 501, "STAYS"))
        self.asked(self.second, 501, DELETE, CONFIRM_RETIRE)
        self.break_off()
        self.answered_without_folder()
        self.assertEqual((self.inside(), self.folder.history()), ({501: "STAYS"}, []))
        self.green_again()
        self.assertTrue(self.try_retire(self.second, 501))
        self.assertEqual([row.Placa for row in self.folder.history()], ["STAYS"])
        self.assertEqual(self.inside(), {})
        self.legal(self.folder)

    def test_gone_and_back_while_the_question_stands(self):
        self.assertTrue(self.try_save(self.second, 501, "WAITS"))
        self.asked(self.second, 501, DELETE, CONFIRM_RETIRE)
        self.break_off()
        self.come_back()
        path = pathlib.Path((self.other / "Objetos/Servidor.INI").read_text().strip())
        wait_for("register behind the mount", (path / "Vintoral.ACT").is_file)
        self.second.answer("yes")
        self.assertEqual([row.Placa for row in self.folder.history()], ["WAITS"])
        self.assertEqual(self.inside(), {})

    def test_gone_while_idle(self):
        self.break_off()
        began = time.monotonic()
        self.second.advance(10000)
        self.assertLess(time.monotonic() - began, LOST_SECONDS)
        self.assertBars(self.second, RED)
        self.assertTrue(self.second.get("TxtCampo(0)")["Enabled"], "typing is not blocked")
        self.green_again()
        self.assertTrue(self.try_save(self.second, 777, "BACK"))
        self.assertEqual(self.inside(), {777: "BACK"})

    def test_closing_without_the_folder(self):
        self.break_off()
        began = time.monotonic()
        self.assertTrue(self.try_close(self.second))
        self.assertLess(time.monotonic() - began, LOST_SECONDS)
