#!/usr/bin/python3
"""at_spi_reader.py WINDOW: starts the program and reads it as a screen reader does.

Everything is asked of and heard from the accessibility bus; keys come from xdotool. Exits with 77
where that bus does not come up."""

import subprocess
import sys
import time

try:
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError):
    sys.exit(77)

LIMIT = 60  # seconds, however busy the machine is
heard = []


def hear(event):
    # The source may be gone by the time it is asked.
    try:
        heard.append((event.type, event.detail1, event.source.get_name(), event.source))
    except GLib.Error:
        pass


def until(what, condition):
    """What the condition comes to, once that is something."""
    deadline = time.monotonic() + LIMIT
    while time.monotonic() < deadline:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            result = condition()
        except GLib.Error:
            result = None  # it went while it was asked
        if result:
            return result
        time.sleep(0.02)
    sys.exit(f"FAILED: {what}; heard last: {[each[:3] for each in heard[-8:]]}")


def tree(node, depth=0):
    if node is None or depth > 30:
        return
    yield node
    # The cells of a table are asked for by row and column, and menus are not open.
    if node.get_role() not in (Atspi.Role.TABLE, Atspi.Role.MENU_BAR):
        for i in range(node.get_child_count()):
            yield from tree(node.get_child_at_index(i), depth + 1)


def found(role, name):
    def is_it(node):
        shows = node.get_state_set().contains(Atspi.StateType.SHOWING)
        return shows and node.get_role() == role and node.get_name().startswith(name)

    return next((node for node in tree(application()) if is_it(node)), None)


def application():
    desktop = Atspi.get_desktop(0)
    children = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
    return next((child for child in children if child and child.get_name() == "tallyfold"), None)


def press_button(name):
    button = until(f"no button {name}", lambda: found(Atspi.Role.PUSH_BUTTON, name))
    action = button.get_action_iface()
    names = [action.get_action_name(i) for i in range(action.get_n_actions())]
    action.do_action(names.index("Press"))


def key(*names):
    subprocess.run(["xdotool", "key", "--clearmodifiers", *names], check=True)


def has_keys(title):
    focus = ["xdotool", "getwindowfocus", "getwindowname"]
    shown = subprocess.run(focus, capture_output=True, text=True, check=False).stdout
    return shown.startswith(title)


def hears(what, kind, name):
    return until(what, lambda: [each for each in heard if each[0] == kind and name in each[2]])


def main():
    if Atspi.init() not in (0, 1):
        sys.exit(77)
    listener = Atspi.EventListener.new(hear)
    for kind in ("object:state-changed:focused", "object:property-change:accessible-name"):
        listener.register(kind)
    program = subprocess.Popen([sys.argv[1]])
    try:
        until("the program is not on the bus", application)
        # What is due asks first.
        dialog = until("no reminder", lambda: found(Atspi.Role.DIALOG, "Scheduled Entries"))
        marks = until("no rows in it", lambda: found(Atspi.Role.TABLE, "Scheduled Entries"))
        assert marks.get_table_iface().get_n_rows() > 0, dialog.get_name()
        press_button("Later")

        until("no window of the account", lambda: found(Atspi.Role.FRAME, "Tallyfold:  Joint"))
        register = until("no register", lambda: found(Atspi.Role.TABLE, "Entries"))
        rows = register.get_table_iface()
        assert rows.get_n_rows() == 23, rows.get_n_rows()
        titles = [rows.get_column_header(i).get_name() for i in range(rows.get_n_columns())]
        cell = rows.get_accessible_at(0, titles.index("Description"))
        assert cell.get_name() == "Description: January rent", cell.get_name()
        assert "Debit in the Amount of:  -890.00" in cell.get_description(), cell.get_description()
        mark = rows.get_accessible_at(0, titles.index("Resolved"))
        assert mark.get_name() == "Resolved: yes", mark.get_name()

        # The focus goes from row to row, and each is heard.
        until("the window has no keys", lambda: has_keys("Tallyfold:  Joint"))
        key("Down")
        hears("the register did not get the focus", "object:state-changed:focused", "Date: ")
        key("Home")
        hears("the first row is not heard", "object:state-changed:focused", "Date: 01/02/26")
        heard.clear()
        key("Down", "Down")
        hears("the third row is not heard", "object:state-changed:focused", "Date: 01/03/26")

        # A balance that changes says so.
        heard.clear()
        key("Delete")
        until("no question", lambda: found(Atspi.Role.DIALOG, "Remove"))
        press_button("OK")
        hears("no new balance", "object:property-change:accessible-name", "Balance: $")
        key("ctrl+s")
        key("ctrl+q")
        if until("it does not end", lambda: program.poll() is not None) and program.returncode:
            sys.exit(f"FAILED: the program ended with {program.returncode}")
    except AssertionError as error:
        sys.exit(f"FAILED: {error}")
    finally:
        program.kill()


main()
