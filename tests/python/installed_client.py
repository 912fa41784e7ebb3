"""tests/python/installed_client.py VERSION: a script of one who has the package installed and nothing else of it."""

import importlib.metadata
import pathlib
import sys

import tbvnonpara as tbv
from tbvnonpara import _engine

version = sys.argv[1]
here = pathlib.Path(sys.prefix).resolve()
for module in (tbv, _engine):
    path = pathlib.Path(module.__file__)
    if not path.is_relative_to(here) or path.is_symlink():
        sys.exit(f"{module.__name__} is that of {path}, not one installed in {here}.")
for name, found in {"library": tbv.__version__, "package": importlib.metadata.version("tbvnonpara")}.items():
    if found != version:
        sys.exit(f"The {name} says that it is of version {found}, not {version}.")
if not (pathlib.Path(tbv.__file__).with_name("py.typed").exists()
        and pathlib.Path(tbv.__file__).with_name("_engine.pyi").exists()):
    sys.exit("The types are not installed.")

# 2 of the 20 arrangements are as far out.
result = tbv.mann_whitney([1, 2, 3], [4, 5, 6])
if abs(result.pvalue - 0.1) > 1e-15 or "Mann-Whitney" not in str(result):
    sys.exit(f"P is {result.pvalue}, not 0.1, and the report is:\n{result}")
