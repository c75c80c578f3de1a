"""The same seed gives the same bytes: two runs of two days, compared file by file."""
import pathlib
import unittest

from drive import a_folder, drive
from station import RECORD, main


def run(root, seed, days):
    """The bytes of all files of both gates, by their names; always in one place, since files tell where they lie."""
    place = pathlib.Path(root) / "gates"
    place.mkdir()
    drive(place, days=days, seed=seed, patience=200)
    files = {str(file.relative_to(place)): file.read_bytes() for file in place.rglob("*") if file.is_file()}
    place.rename(place.with_name(f"run {len(list(place.parent.iterdir()))}"))
    return files


class Twice(unittest.TestCase):
    def test_one_seed_gives_the_same_files(self):
        with a_folder() as root:
            first, second, other = run(root, 5, 2), run(root, 5, 2), run(root, 6, 1)
        self.assertIn("P01/Multimedia/Vintoral.HST", first)
        self.assertEqual(sorted(first), sorted(second))
        self.assertEqual([name for name in first if first[name] != second[name]], [])
        # Another seed is another first day.
        begun = len(other["P01/Multimedia/Vintoral.HST"]) // 2
        self.assertGreater(begun, 50 * RECORD.size)
        self.assertNotEqual(first["P01/Multimedia/Vintoral.HST"][:begun], other["P01/Multimedia/Vintoral.HST"][:begun])


if __name__ == "__main__":
    main()
