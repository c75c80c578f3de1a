"""scripts/install-data fills a station's folder and leaves alone what is there."""
import unittest

from house import HouseTest


class InstallData(HouseTest):
    def setUp(self):
        super().setUp()
        for path in ["sounds/Vintoral-1.wav", "sounds/make-sounds", "voice/ABRiL-1.wav", "wallpapers/Calma.jpg",
                     "fonts/Vintoral.ttf", "icons/Vintoral.ico", "icons/guardar.svg"]:
            self.write("data/" + path, path)

    def install(self):
        result = self.run_script("install-data", self.root / "Estación uno", self.root / "data")
        self.assertEqual((result.returncode, result.stderr), (0, ""))

    def files(self):
        station = self.root / "Estación uno"
        return {str(file.relative_to(station)): file.read_text() for file in station.rglob("*") if file.is_file()}

    ALL = {"Sonidos/Vintoral-1.wav": "sounds/Vintoral-1.wav", "ABRiL/ABRiL-1.wav": "voice/ABRiL-1.wav",
           "Fondos/Calma.jpg": "wallpapers/Calma.jpg", "Fuentes/Vintoral.ttf": "fonts/Vintoral.ttf",
           "Recursos/Vintoral.ico": "icons/Vintoral.ico"}

    def test_new_station(self):
        self.install()
        self.assertEqual(self.files(), self.ALL)

    def test_what_is_there_stays(self):
        self.write("Estación uno/Sonidos/Vintoral-1.wav", "the operator's own")
        self.install()
        self.install()
        self.assertEqual(self.files(), self.ALL | {"Sonidos/Vintoral-1.wav": "the operator's own"})

    def test_kinds_that_are_not_there(self):
        for folder in ["fonts/Vintoral.ttf", "icons/Vintoral.ico", "icons/guardar.svg"]:
            (self.root / "data" / folder).unlink()
        (self.root / "data/fonts").rmdir()
        self.install()
        self.assertEqual(len(self.files()), 3)


unittest.main()
