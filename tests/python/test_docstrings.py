"""The examples of the docstrings give what they show, and every public name has a docstring in numpydoc's form."""

import doctest
import inspect

import pytest
import tbvnonpara

MODULES = [tbvnonpara._figures, tbvnonpara._result, tbvnonpara._tests, tbvnonpara._each, tbvnonpara]
PUBLIC = [getattr(tbvnonpara, name) for name in tbvnonpara.__all__]


def examples():
    finder = doctest.DocTestFinder(exclude_empty=True)
    for module in MODULES:
        for found in finder.find(module):
            if found.examples:
                yield pytest.param(found, id=found.name)


@pytest.mark.parametrize("found", examples())
def test_example_gives_what_it_shows(found):
    runner = doctest.DocTestRunner(optionflags=doctest.NORMALIZE_WHITESPACE)
    said = []
    assert runner.run(found, out=said.append).failed == 0, "".join(said)


@pytest.mark.parametrize("thing", PUBLIC, ids=lambda thing: thing.__name__)
def test_public_name_is_documented(thing):
    text = inspect.getdoc(thing)
    assert text
    if inspect.isfunction(thing):
        for heading in ("Parameters\n----------", "Returns\n-------", "Examples\n--------"):
            assert heading in text
        parameters = text.split("Returns\n")[0]
        for name in inspect.signature(thing).parameters:
            assert name in parameters, f"{name} is not documented"
