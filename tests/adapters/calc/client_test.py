"""The client in C++ against a running office; what a new installation does before the office is started again."""

import os
import subprocess
import unittest

import uno  # noqa: F401

from office import Office, TestCase, cells_of


class Clients(TestCase):
    def test_the_client_in_cpp_uses_the_typed_interface(self):
        with Office() as office:
            client = subprocess.run(["timeout", "300", os.environ["TBVNONPARA_CLIENT"], office.pipe],
                                    stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        self.assertEqual(client.returncode, 0, client.stdout + client.stderr)
        self.assertIn("PASSED", client.stdout)

    def test_a_package_that_was_just_installed_can_be_used_by_scripts(self):
        with Office(extension=os.environ["TBVNONPARA_OXT"]) as office:
            document = office.open_with([["x", 1, 2, 3], ["y", 4, 5, 6]])
            for output in ("D1", "J1"):
                request = office.create("TBVNonPara.clsNonPara")
                request.Headers = True
                request.YRange, request.XRange, request.OutputRange = "A1:A4", "B1:B4", output
                request.Results()
            cells = cells_of(document.Sheets.getByIndex(0))
            self.assertEqual(cells[0][3], "Mann-Whitney Test Results for:")
            self.assertEqual(cells[0][9], "Mann-Whitney Test Results for:")
            self.assertEqual(document.Sheets.Count, 1)
            document.close(True)


if __name__ == "__main__":
    unittest.main()
