#!/usr/bin/python3
"""Goes through the windows of quorvel over AT-SPI, as a screen reader does.

    with_x_server.sh accessibility_test.py QUORVEL DOCUMENT

Fails on a control that takes the keyboard but has nothing to be called by, and on two in one
window that are called the same. All is done by the actions that the controls offer, never by the
mouse. Runs in a session bus of its
own; needs Debian's Python, which alone has the bindings.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# The bindings mark both their ways to the name of an action as old.
warnings.simplefilter("ignore", DeprecationWarning)

PATIENCE_S = 20  # for each step; a build with sanitizers is slow to start
WHOLE_LIMIT_S = 90
CALL_LIMIT_MS = 5000
BETWEEN_LOOKS_S = 0.02

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


class Program:
    """The running program, as it is on the bus; ended at the end whatever happens."""

    def __init__(self, program, document):
        self.faults = []
        self.give_up = time.monotonic() + WHOLE_LIMIT_S
        self.application = None
        self.process = subprocess.Popen([program, document])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def wait_for(self, what, look):
        """Returns what `look` gives as soon as that is true; raises TimeoutError if it never is."""
        give_up = min(self.give_up, time.monotonic() + PATIENCE_S)
        while time.monotonic() < give_up and self.process.poll() is None:
            try:
                if found := look():
                    return found
            except GLib.Error:  # what was looked at has just gone
                pass
            time.sleep(BETWEEN_LOOKS_S)
        raise TimeoutError(f"{what}: never came; the program's status is {self.process.poll()}")

    def connect(self):
        self.application = self.wait_for("the program on the bus", self.find_application)
        self.application.set_cache_mask(Atspi.Cache.NONE)  # always as it is now

    def find_application(self):
        running = children(Atspi.get_desktop(0))
        return next((one for one in running if one.get_process_id() == self.process.pid), None)

    def find_window(self, title):
        """The one that is to be seen: closed windows stay in the tree."""
        for window in children(self.application):
            if window.get_name() == title and has(window, Atspi.StateType.SHOWING):
                return window
        return None

    def window(self, title):
        return self.wait_for(f"the window '{title}'", lambda: self.find_window(title))

    def wait_until_closed(self, title):
        self.wait_for(f"'{title}' closed", lambda: not self.find_window(title))

    def control(self, title, name):
        named = (one for one in controls(self.window(title)) if spoken_name(one) == name)
        return next(named, None)

    def press(self, title, name):
        def try_to():
            control = self.control(title, name)
            for i in range(control.get_n_actions() if control else 0):
                if control.get_action_name(i) == "Press":
                    return control.do_action(i)
            return False  # disabled: it offers no action

        self.wait_for(f"'{name}' in '{title}' to be pressed", try_to)

    def examine(self, title):
        heard = []
        for control in controls(self.window(title)):
            role, name = control.get_role_name(), spoken_name(control)
            if not name.strip():
                self.faults.append(f"{title}: no name for a {role} ({control.get_description()})")
            elif f"{role}: {name}" in heard:
                self.faults.append(f"{title}: two are called '{role}: {name}'")
            heard.append(f"{role}: {name}")
        print(f"{title}: {len(heard)} controls")

    def visit(self, opener, button, title, close):
        self.press(opener, button)
        self.examine(title)
        self.press(title, close)
        self.wait_until_closed(title)

    def listing(self):
        name = "Listing and progress"
        text = self.wait_for(name, lambda: self.control("Quorvel", name))
        return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))


def go_through_windows(program):
    program.connect()
    program.examine("Stop words loaded")
    program.press("Stop words loaded", "OK")
    program.wait_until_closed("Stop words loaded")
    program.examine("Quorvel")
    program.press("Quorvel", "Settings")
    program.examine("Quorvel settings")
    chooser = "Select file of stop words in some language"
    program.visit("Quorvel settings", chooser, "Stop words", "Cancel")
    program.press("Quorvel settings", "Close panel")
    program.wait_until_closed("Quorvel settings")
    program.visit("Quorvel", "Help", "Help for Quorvel", "Close")
    program.visit("Quorvel", "About", "About Quorvel", "Close")
    program.press("Quorvel", "List words")
    program.window("Concordance file written")  # closes by itself
    program.wait_until_closed("Concordance file written")
    if not program.listing().startswith("["):
        program.faults.append(f"the listing begins with '{program.listing()[:60]}'")
    program.press("Quorvel", "Quit")
    if status := program.process.wait(PATIENCE_S):
        program.faults.append(f"ended with status {status}")


def examine_program(program_path, document):
    Atspi.set_timeout(CALL_LIMIT_MS, CALL_LIMIT_MS)
    with Program(program_path, document) as program:
        try:
            go_through_windows(program)
        except (TimeoutError, subprocess.TimeoutExpired, GLib.Error) as stuck:
            program.faults.append(str(stuck))
    for fault in program.faults:
        print(fault, file=sys.stderr)
    return 1 if program.faults else 0


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
