"""The same seed gives the same bytes: two runs of two days, compared file by file."""
import pathlib
import unittest

from drive import a_folder, drive
from station import main


def run(root, seed):
    """The bytes of all files of both gates, by their names; always in one place, since files tell where they lie."""
    place = pathlib.Path(root) / "gates"
    place.mkdir()
    drive(place, days=2, seed=seed, patience=1)
    files = {str(file.relative_to(place)): file.read_bytes() for file in place.rglob("*") if file.is_file()}
    place.rename(place.with_name(f"run {len(list(place.parent.iterdir()))}"))
    return files


class Twice(unittest.TestCase):
    def test_one_seed_gives_the_same_files(self):
        with a_folder() as root:
            first, second, other = run(root, 5), run(root, 5), run(root, 6)
        self.assertIn("P01/Multimedia/Vintoral.HST", first)
        self.assertEqual(sorted(first), sorted(second))
        self.assertEqual([name for name in first if first[name] != second[name]], [])
        # Another seed is another day.
        self.assertNotEqual(first["P01/Multimedia/Vintoral.HST"], other["P01/Multimedia/Vintoral.HST"])


if __name__ == "__main__":
    main()
