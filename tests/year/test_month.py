"""A month of two gates: each page, slip, list and log agrees with an account kept beside them, and so do all totals."""
import os
import unittest

from drive import a_folder, drive
from station import main

DAYS = int(os.environ.get("VINTORAL_DAYS", "30"))
SEED = 1


class Month(unittest.TestCase):
    def test_all_reports_agree_with_the_account(self):
        with a_folder() as root:
            year = drive(root, DAYS, SEED, patience=200, whole=1)
        # Enough has happened for the agreement to say something.
        self.assertGreater(year.ledger.gone, 200 * DAYS)
        self.assertGreater(len(year.ledger.movements), 180 * DAYS)
        self.assertEqual([gate for gate, till in year.tills.items() if len(till.invoices) < 5 * DAYS], [])
        self.assertTrue(all(year.reports.categories[name] > 0 for name in ("AUTOMOVIL", "MOTOCICLETA", "BICICLETA", "CAMION")))


if __name__ == "__main__":
    main()
