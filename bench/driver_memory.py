"""Resident memory of the driver, idle with 1000 fichas inside, at most 12 MiB."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "scenarios"))
from station import DrivenDay, inside, main, stamp  # noqa: E402

MOST = 12 * 1024  # KiB


class Memory(DrivenDay):
    def test_idle_with_1000_fichas(self):
        fichas = [inside(number, stamp("13:00", "20/11/2026"), f"PL{number:04}") for number in range(1, 1001)]
        first = self.with_fichas(*fichas)
        first.close()
        station = self.running()
        self.assertEqual(station.caption("LblInfo(0)"), "1000 ( 1/20 )  ")
        station.advance(60_000)
        status = pathlib.Path(f"/proc/{station.process.pid}/status").read_text()
        resident = next(int(line.split()[1]) for line in status.splitlines() if line.startswith("VmRSS"))
        print(f"driver, idle with 1000 fichas: {resident / 1024:.1f} MiB resident, at most {MOST / 1024:.0f}")
        self.assertLessEqual(resident, MOST)


if __name__ == "__main__":
    main()
