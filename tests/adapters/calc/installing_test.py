"""The add-in as users get it: by its Debian package for all of them, by ./run calc for one."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from cases import EIGHT_TESTS, holds, open_data
from office import Office, TestCase, cells_of

ROOT = pathlib.Path(__file__).resolve().parents[3]
PACKAGE = pathlib.Path(os.environ["TBVNONPARA_OXT"])
BUILD = PACKAGE.parents[2]
EXTENSIONS = "usr/lib/libreoffice/share/extensions"


class Installing(TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(dir="/tmp"))  # Where another user can look, too.
        self.addCleanup(shutil.rmtree, self.folder)

    def run_here(self, *command, **options):
        return subprocess.run(command, cwd=self.folder, capture_output=True, text=True, timeout=600, check=False, **options)

    def test_package_registers_for_all_users(self):
        made = self.run_here("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", self.folder, "-G", "DEB",
                             "-D", "CPACK_COMPONENTS_ALL=calc")
        self.assertEqual(made.returncode, 0, made.stdout + made.stderr)
        deb = next(self.folder.glob("tbvnonpara-calc_*.deb"))
        needs = self.run_here("dpkg-deb", "-f", deb, "Depends").stdout
        self.assertIn("libreoffice-calc (>= 1:7.4)", needs)
        self.assertNotIn("libfmt", needs)
        self.run_here("dpkg-deb", "-x", deb, self.folder / "root")
        self.assertTrue((self.folder / "root/usr/share/doc/tbvnonpara-calc/copyright").exists())

        with Office(extension=None, bundled=self.folder / "root" / EXTENSIONS) as office:
            # For users who have started the office once, the add-in is in its own process, not in a helper's.
            manager = office.context.getValueByName("/singletons/com.sun.star.deployment.ExtensionManager")
            places = [extension.URL for extensions in manager.getAllExtensions(None, None) for extension in extensions
                      if extension and extension.Identifier.Value == "org.tbvnonpara.calc"]
            self.assertEqual(places, ["vnd.sun.star.expand:$BUNDLED_EXTENSIONS/TBVNonPara"])
            method, title, first, second, probability = EIGHT_TESTS[0]
            document = open_data(office)
            request = office.create("TBVNonPara.clsNonPara")
            request.Method, request.Headers, request.YRange, request.XRange = method, True, first, second
            request.Results()
            last = document.Sheets.getByIndex(document.Sheets.Count - 1)
            self.assertTrue(holds(last, title, probability), cells_of(last))

    def test_script_installs_and_removes_for_one_user(self):
        home = self.folder / "home"
        home.mkdir()
        for file in (ROOT / "adapters/calc/install", PACKAGE):
            shutil.copy(file, self.folder)
        user = []
        if os.geteuid() == 0:  # Root installs for all users, and this system's users are none of the test's business.
            user = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"]
            for path in (self.folder, *self.folder.rglob("*")):
                shutil.chown(path, "nobody", "nogroup")
        environment = {"HOME": str(home), "PATH": os.environ["PATH"], "LANG": "C.UTF-8", "TMPDIR": str(self.folder)}

        def call(*arguments):
            return self.run_here(*user, "sh", self.folder / "install", *arguments, env=environment)

        def installed():
            return "org.tbvnonpara.calc" in self.run_here(*user, "unopkg", "list", env=environment).stdout

        missing = call("--remove")
        self.assertEqual((missing.returncode, missing.stderr.split(" to ")[0]), (1, "There is no add-in"))
        for _ in range(2):  # A newer one replaces the older.
            done = call(self.folder / PACKAGE.name)
            self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
            self.assertIn("Data > Statistics > Nonparametric Tests", done.stdout)
            self.assertTrue(installed())
        done = call("--remove")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertFalse(installed())


if __name__ == "__main__":
    unittest.main()
