"""A German environment, in which numbers have a decimal comma."""

import locale
import os


def german():
    """What to add to the environment of a process. Fails where there is no such locale: ctest names the one that
    was made with the build."""
    name = "de_DE.UTF-8"
    try:
        locale.setlocale(locale.LC_ALL, name)
    except locale.Error as error:
        raise AssertionError(f"the locale {name} is not in the folder LOCPATH={os.environ.get('LOCPATH')}; "
                             "run the test by ctest") from error
    try:
        assert locale.localeconv()["decimal_point"] == ","
    finally:
        locale.setlocale(locale.LC_ALL, "C")
    return {"LC_ALL": name, "LOCPATH": os.environ["LOCPATH"]}
