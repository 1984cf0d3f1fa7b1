#!/usr/bin/python3
"""Goes through the windows of quorvel over AT-SPI, as a screen reader does.

    with_x_server.sh accessibility_test.py QUORVEL DOCUMENT

Fails on a control that takes the keyboard but has nothing to be called by, and on two in one
window that are called the same. Runs in a session bus of its own; needs Debian's Python, which
alone has the bindings.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE_S = 20  # for each step; a build with sanitizers is slow to start


def children(accessible):
    found = (accessible.get_child_at_index(i) for i in range(accessible.get_child_count()))
    return [child for child in found if child]


def has(accessible, state):
    return accessible.get_state_set().contains(state)


def controls(accessible):
    """All that take the keyboard; the list in a combo box belongs to it."""
    if has(accessible, Atspi.StateType.FOCUSABLE):
        yield accessible
    if accessible.get_role() != Atspi.Role.COMBO_BOX:
        for child in children(accessible):
            yield from controls(child)


def spoken_name(control):
    """What a screen reader calls the control; the group around it labels it too."""
    for relation in control.get_relation_set():
        label = relation.get_target(0)
        is_label = label.get_role() == Atspi.Role.LABEL
        if is_label and relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return label.get_name()
    # Without a label, the name of a combo box is what is chosen in it.
    return "" if control.get_role() == Atspi.Role.COMBO_BOX else control.get_name()


def wait_for(what, look):
    """Returns what `look` gives as soon as that is true."""
    give_up = time.monotonic() + PATIENCE_S
    while time.monotonic() < give_up:
        try:
            if found := look():
                return found
        except GLib.Error:  # what was looked at has just gone
            pass
        time.sleep(0.02)
    sys.exit(f"{what}: never came")


def find_window(title):
    """The one that is to be seen: closed windows stay in the tree."""
    for running in children(Atspi.get_desktop(0)):
        running.set_cache_mask(Atspi.Cache.NONE)  # always as it is now
        for window in children(running):
            if window.get_name() == title and has(window, Atspi.StateType.SHOWING):
                return window
    return None


def press(title, name):
    def try_to():
        window = find_window(title)
        for control in controls(window) if window else ():
            if spoken_name(control) == name and control.get_n_actions() > 0:
                return control.do_action(0)
        return False  # disabled: it offers no action

    wait_for(f"'{name}' in '{title}'", try_to)


def examine(title):
    heard = set()
    for control in controls(wait_for(title, lambda: find_window(title))):
        name = f"{control.get_role_name()}: {spoken_name(control)}"
        if not spoken_name(control).strip() or name in heard:
            sys.exit(f"{title}: no name, or one of another control: '{name}'")
        heard.add(name)


def visit(title, close):
    examine(title)
    press(title, close)
    wait_for(f"'{title}' closed", lambda: not find_window(title))


def examine_program(program, document):
    with subprocess.Popen([program, document]) as process:
        try:
            visit("Stop words loaded", "OK")
            examine("Quorvel")
            press("Quorvel", "Settings")
            press("Quorvel settings", "Select file of stop words in some language")
            visit("Stop words", "Cancel")
            visit("Quorvel settings", "Close panel")
            press("Quorvel", "Help")
            visit("Help for Quorvel", "Close")
            press("Quorvel", "About")
            visit("About Quorvel", "Close")
        finally:
            process.kill()


def run_in_own_session(program_path, document):
    """Runs this script once more, where nothing of the user's session is read or written."""
    with tempfile.TemporaryDirectory() as folder:
        own = os.environ | {"HOME": folder, "XDG_RUNTIME_DIR": folder, "XDG_CONFIG_HOME": folder}
        own |= {"GSETTINGS_BACKEND": "memory", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        document = shutil.copy(document, folder)
        inner = ["dbus-run-session", "--", __file__, "--in-session", program_path, document]
        return subprocess.run(inner, env=own, check=False).returncode


if __name__ == "__main__":
    *in_session, quorvel, text_file = sys.argv[1:]
    sys.exit((examine_program if in_session else run_in_own_session)(quorvel, text_file))
