"""A Calc of the test's own: a private profile, no window unless asked for, a time limit, ended for certain."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import traceback
import unittest

import uno
import unohelper
from com.sun.star.awt import XCallback
from com.sun.star.beans import NamedValue, PropertyValue
from com.sun.star.connection import NoConnectException
from com.sun.star.sheet import TableFilterField
from com.sun.star.sheet.FilterOperator import GREATER_EQUAL
from com.sun.star.task import XInteractionHandler
from com.sun.star.ucb import XCommandEnvironment

PROFILE_MADE = 81
# Seconds to wait for what takes one at most on an idle machine.
PATIENCE = int(os.environ.get("TBVNONPARA_PATIENCE", "180"))


def property_value(name, value):
    result = PropertyValue()
    result.Name, result.Value = name, value
    return result


class _Agreement(unohelper.Base, XCommandEnvironment, XInteractionHandler):
    """Says yes to the extension manager, whose first answer is always the agreement."""

    def getInteractionHandler(self):
        return self

    def getProgressHandler(self):
        return None

    def handle(self, request):
        request.getContinuations()[0].select()


class _MainThread(unohelper.Base, XCallback):
    """Work for the thread that the office's events come to."""

    def __init__(self, work):
        self.work, self.done, self.result, self.error = work, threading.Event(), None, None

    def notify(self, _):
        try:
            self.result = self.work()
        except Exception as error:  # pylint: disable=broad-except
            self.error = error
        self.done.set()


class Office:
    """with Office() as office: ... The process ends with the block, whatever happens in it.

    The add-in is installed in its profile. Another value of `extension` is a package to be installed now, which
    then runs in a helper process, as for a user who has not started the office again. `bundled` is a folder of
    extensions for all users, instead of the office's own.
    """

    def __init__(self, visible=False, seconds=1100, extension=True, bundled=None):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="tbvnonpara-calc-"))
        self.profile = self.folder / "profile"
        self.visible = visible
        self.seconds = seconds
        self.prepared = os.environ.get("TBVNONPARA_PROFILE") if extension is True else None
        self.extension = extension if extension is not True else None
        self.bundled = bundled
        self.log = self.folder / "office.log"
        self.pipe = self.folder.name
        self.process = None

    def __enter__(self):
        try:
            self._make_profile()
            self._start()
            if self.extension:
                self._install()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self._end()
        shutil.rmtree(self.folder, ignore_errors=True)

    def command(self, *arguments):
        command = ["timeout", "-k", "5", str(self.seconds), "soffice", "--norestore", "--nologo",
                   "--nodefault", "--nofirststartwizard",
                   "-env:UserInstallation=" + self.profile.as_uri()]
        if not self.visible:
            command.append("--headless")
        if self.bundled:
            command.append("-env:BUNDLED_EXTENSIONS=" + self.bundled.as_uri())
        return command + list(arguments)

    def wait(self):
        """Waits until the office has ended by itself."""
        return self.process.wait(PATIENCE)

    def spawn(self, *arguments):
        # The types that a client is told of in its environment would hide some of the office's own.
        environment = {name: value for name, value in os.environ.items() if name != "URE_MORE_TYPES"}
        with open(self.log, "ab") as log:
            return subprocess.Popen(self.command(*arguments), stdin=subprocess.DEVNULL, stdout=log,
                                    stderr=log, env=environment, start_new_session=True)

    def _make_profile(self):
        scripts = self.profile / "user" / "Scripts" / "python"
        if self.prepared:
            shutil.copytree(self.prepared, self.profile)
        scripts.mkdir(parents=True, exist_ok=True)
        shutil.copy(pathlib.Path(__file__).with_name("looking.py"), scripts)
        if self.prepared:
            return
        # A fresh profile ends the first start once with a status of its own; the next start is the real one.
        for _ in range(3):
            status = self.spawn("--terminate_after_init").wait()
            if status != PROFILE_MADE:
                return

    def _start(self):
        self.process = self.spawn(f"--accept=pipe,name={self.pipe};urp;")
        resolver = uno.getComponentContext().ServiceManager.createInstance(
            "com.sun.star.bridge.UnoUrlResolver")
        limit = time.monotonic() + PATIENCE
        self.context = None
        while self.context is None:
            try:
                self.context = resolver.resolve(
                    f"uno:pipe,name={self.pipe};urp;StarOffice.ComponentContext")
                continue
            except NoConnectException:
                pass
            # Outside the handler: an office's exception cannot be kept as the cause of another.
            if self.process.poll() == PROFILE_MADE:
                self.process = self.spawn(f"--accept=pipe,name={self.pipe};urp;")
            elif self.process.poll() is not None or time.monotonic() > limit:
                raise RuntimeError("the office did not start: " + self.log.read_text(errors="replace"))
            time.sleep(0.05)
        self.desktop = self.create("com.sun.star.frame.Desktop")
        self.scripts = None

    def within(self, function, *arguments):
        """What a function of looking.py gives, which runs in the office."""
        if self.scripts is None:
            factory = self.context.getValueByName(
                "/singletons/com.sun.star.script.provider.theMasterScriptProviderFactory")
            self.scripts = factory.createScriptProvider("")
        script = self.scripts.getScript(f"vnd.sun.star.script:looking.py${function}?language=Python&location=user")
        return script.invoke(arguments, (), ())[0]

    def _install(self):
        manager = self.context.getValueByName(
            "/singletons/com.sun.star.deployment.ExtensionManager")
        silently = NamedValue()
        silently.Name, silently.Value = "SUPPRESS_LICENSE", "1"
        manager.addExtension(pathlib.Path(self.extension).resolve().as_uri(), (silently,), "user", None,
                             _Agreement())

    def _end(self):
        if self.process is None or self.process.poll() is not None:
            return
        try:
            self.desktop.terminate()
            self.process.wait(60)
        except Exception:  # pylint: disable=broad-except
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()

    def restart(self):
        """Ends the office and starts it again, with the same profile."""
        self._end()
        self._start()

    def create(self, service):
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    def open(self, url="private:factory/scalc", **properties):
        def load():
            return self.desktop.loadComponentFromURL(
                str(url), "_blank", 0, tuple(property_value(*item) for item in properties.items()))

        # A new window asks for the clipboard: with GTK, the answer does not always reach another thread than the main
        # one, and the office would wait for ever.
        return self.on_main_thread(load) if self.visible else load()

    def on_main_thread(self, work):
        call = _MainThread(work)
        self.create("com.sun.star.awt.AsyncCallback").addCallback(call, None)
        if not call.done.wait(PATIENCE):
            raise RuntimeError("the office's main thread is busy: " + self.log.read_text(errors="replace"))
        if call.error:
            raise call.error
        return call.result

    def open_with(self, columns, sheet="Data"):
        """A new document whose first sheet holds these columns from A1 on."""
        document = self.open()
        cells = document.Sheets.getByIndex(0)
        cells.Name = sheet
        for number, column in enumerate(columns):
            block = cells.getCellRangeByPosition(number, 0, number, len(column) - 1)
            block.setDataArray(tuple((value,) for value in column))
        return document

    def dispatch(self, document, command, **arguments):
        self.create("com.sun.star.frame.DispatchHelper").executeDispatch(
            document.CurrentController.Frame, command, "", 0,
            tuple(property_value(*item) for item in arguments.items()))


class TestCase(unittest.TestCase):
    """A test that can tell of an office's exception, which unittest itself cannot keep."""

    def _callTestMethod(self, method):
        failure = None
        try:
            super()._callTestMethod(method)
        except uno.getClass("com.sun.star.uno.Exception") as error:
            failure = (type(error).__name__ + ": " + str(error) + "\n" +
                       "".join(traceback.format_tb(error.__traceback__)))
        if failure:
            self.fail(failure)


def cells_of(sheet):
    """Everything that a sheet holds, as rows."""
    cursor = sheet.createCursor()
    cursor.gotoStartOfUsedArea(False)
    cursor.gotoEndOfUsedArea(True)
    return cursor.getDataArray()


def filter_rows(document, address, column, number):
    """Sets the AutoFilter of these cells of the first sheet: only rows with a number of at least `number` in
    this column are shown."""
    cells = document.Sheets.getByIndex(0).getCellRangeByName(address)
    if not document.DatabaseRanges.hasByName("Filtered"):
        document.DatabaseRanges.addNewByName("Filtered", cells.RangeAddress)
        document.DatabaseRanges.getByName("Filtered").AutoFilter = True
    field = TableFilterField()
    field.Field, field.IsNumeric, field.NumericValue, field.Operator = column, True, number, GREATER_EQUAL
    descriptor = cells.createFilterDescriptor(True)
    descriptor.ContainsHeader = True
    descriptor.setFilterFields((field,))
    cells.filter(descriptor)


def prepare(folder, extension):
    """Makes a profile with the add-in in it, for every test to begin with."""
    with Office(extension=extension) as office:
        office.desktop.terminate()
        office.wait()
        shutil.copytree(office.profile, folder)


if __name__ == "__main__":
    prepare(sys.argv[1], sys.argv[2])
