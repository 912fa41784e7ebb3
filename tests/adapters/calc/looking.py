"""What is on the screen, looked at from within the office.

A script of the office's own, in the profile of the tests' offices: a client's look at a control takes a dozen messages, one
from here a few calls. What goes while it is looked at is passed over.
"""

import collections

from com.sun.star.accessibility.AccessibleRole import TABLE
from com.sun.star.uno import RuntimeException

MOST = 200  # children that are looked at; a sheet has millions


def _children(context):
    """The children and their numbers; the cells of a sheet are nobody's business here."""
    try:
        if context.getAccessibleRole() == TABLE:
            return
        for i in range(min(context.getAccessibleChildCount(), MOST)):
            child = context.getAccessibleChild(i)
            if child is not None:
                yield i, child.getAccessibleContext()
    except RuntimeException:
        return


def _all(context):
    """(place, context): the numbers of the children that lead there, "" for itself; the nearest first."""
    yield "", context
    waiting = collections.deque([("", context)])
    while waiting:
        place, parent = waiting.popleft()
        for number, child in _children(parent):
            there = f"{place} {number}"
            yield there, child
            waiting.append((there, child))


def _states(context):
    states = context.getAccessibleStateSet()
    if isinstance(states, int):
        return tuple(state for state in range(64) if states & (1 << state))
    return tuple(states.getStates())


def _told(those):
    told = []
    for place, context in those:
        try:
            told.append((place, context.getAccessibleName(), context.getAccessibleRole(), _states(context)))
        except RuntimeException:
            pass
    return tuple(told)


def walk(context):
    """(place, name, role, states) of a control and of all that it holds."""
    return _told(_all(context))


def children(context):
    """(place, name, role, states) of what a control holds itself."""
    return _told((str(number), child) for number, child in _children(context))


def at(context, place):
    """The control at a place."""
    for number in place.split():
        context = context.getAccessibleChild(int(number)).getAccessibleContext()
    return context


def find(context, name, role):
    """The nearest one of a name, and of a role unless that is None."""
    for _, found in _all(context):
        try:
            if found.getAccessibleName() == name and role in (None, found.getAccessibleRole()):
                return found
        except RuntimeException:
            pass
    return None


def _windows():
    """(name, control) of the windows on the screen."""
    office = XSCRIPTCONTEXT.getComponentContext()  # noqa: F821  # pylint: disable=undefined-variable
    toolkit = office.ServiceManager.createInstanceWithContext("com.sun.star.awt.Toolkit", office)
    for i in range(toolkit.getTopWindowCount()):
        try:
            context = toolkit.getTopWindow(i).getAccessibleContext()
            name = context.getAccessibleName()
        except (AttributeError, RuntimeException):
            continue  # It has gone since it was counted.
        if name is not None:
            yield name, context


def windows():
    """The windows on the screen."""
    return tuple(context for _, context in _windows())


def window(title):
    """The window with a title, or None."""
    return next((context for name, context in _windows() if name == title), None)


def titles():
    """The names of the windows on the screen."""
    return tuple(name for name, _ in _windows())


g_exportedScripts = (walk, children, at, find, windows, window, titles)
