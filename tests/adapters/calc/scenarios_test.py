"""What is tested inside the office's own process: the scenarios, documents without views, large sheets."""

import os
import re
import unittest

import uno  # noqa: F401
from com.sun.star.beans import NamedValue

from office import Office, TestCase

COMPONENT = os.environ["TBVNONPARA_SCENARIOS"]


def named_value(name, value):
    result = NamedValue()
    result.Name, result.Value = name, value
    return result


class InsideTheOffice(TestCase):
    def run_inside(self, tests, at_least, through=""):
        with Office() as office:
            # Loaded by its file: a component of tests needs no registration.
            loader = office.create("com.sun.star.loader.SharedLibrary")
            factory = loader.activate("TBVNonPara.Scenarios", "", "file://" + COMPONENT, None)
            job = factory.createInstanceWithContext(office.context)
            status = job.execute((named_value("filter", tests), named_value("brief", "1"),
                                  named_value("through", through)))
            log = office.log.read_text(errors="replace")
        said = "\n".join(line for line in log.splitlines() if "javaldx" not in line)
        print("\n" + said)
        self.assertEqual(status, 0, "see above")
        self.assertGreaterEqual(int(re.search(r"PASSED\s*\] (\d+) test", said).group(1)), at_least)

    def test_every_scenario_gives_the_report_of_the_embedded_workbook(self):
        own = os.environ.get("TBVNONPARA_SCENARIO_FOLDER")
        self.run_inside("*Scenario*", 1 if own else 60)

    def test_every_scenario_gives_it_through_the_service_that_is_installed(self):
        own = os.environ.get("TBVNONPARA_SCENARIO_FOLDER")
        self.run_inside("*Scenario*", 1 if own else 60, through="service")

    def test_cells_functions_and_views_are_used_as_the_library_needs_them(self):
        self.run_inside("Host.*:AddedSheet.*:Reports.*:PlacedFormats.*", 11)

    def test_sheets_are_named_and_deleted_and_take_details(self):
        self.run_inside("SheetNames.*:DeletedSheet.*:DetailsInCalc.*", 11)

    def test_a_run_that_is_cancelled_places_the_report_or_nothing(self):
        self.run_inside("RunWithDetails.*", 4)

    def test_documents_without_views_take_reports(self):
        self.run_inside("WithoutViews.*", 2)

    def test_large_sheets_become_reports(self):
        self.run_inside("LargeSheet.*", 2)


if __name__ == "__main__":
    unittest.main()
