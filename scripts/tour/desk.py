# SPDX-License-Identifier: GPL-3.0-or-later
"""A desk of the tour's own: an X server without a screen, a window manager, a keyboard, one font."""

import os

from servants import answer, tool
from waiting import wait_for

SCREEN = "1280x800"
# Spanish letters stand on keys of their own here, so none has to be lent a key while it is typed.
KEYBOARD = ("-layout", "us", "-variant", "altgr-intl")
DESKTOP = "#50687d"

_FONTS = """<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts</dir>
  <cachedir>{home}/fontcache</cachedir>
  <match target="pattern">
    <edit name="family" mode="prepend" binding="strong"><string>DejaVu Sans</string></edit>
  </match>
</fontconfig>
"""

_THEME = """window.active.title.bg: flat solid
window.active.title.bg.color: #2f4a60
window.inactive.title.bg: flat solid
window.inactive.title.bg.color: #8497a6
window.active.label.bg: parentrelative
window.inactive.label.bg: parentrelative
window.active.label.text.color: #ffffff
window.inactive.label.text.color: #e8edf1
window.label.text.justify: left
window.*.button.*.bg: parentrelative
window.active.button.*.image.color: #ffffff
window.inactive.button.*.image.color: #e8edf1
window.client.padding.width: 0
window.client.padding.height: 0
window.handle.width: 0
border.width: 1
border.color: #2f4a60
padding.width: 6
padding.height: 4
"""

_MANAGER = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <placement><policy>Smart</policy><center>yes</center></placement>
  <theme><name>Mesa</name><titleLayout>NLIMC</titleLayout></theme>
  <desktops><number>1</number></desktops>
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
  <mouse><context name="Client"><mousebind button="Left" action="Press">
    <action name="Focus"/><action name="Raise"/></mousebind></context></mouse>
</openbox_config>
"""


def _write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def _environment(home):
    """What a program on the desk sees: nothing of the one who plays the tour."""
    fonts = _write(os.path.join(home, "fonts.conf"), _FONTS.format(home=home))
    runtime = os.path.join(home, "runtime")
    os.makedirs(runtime, mode=0o700)
    env = {"PATH": os.environ["PATH"], "HOME": home, "LANG": "C.UTF-8", "XDG_RUNTIME_DIR": runtime,
           "QT_QPA_PLATFORM": "xcb", "FONTCONFIG_FILE": fonts}
    kept = [name for name in os.environ if name.startswith(("ASAN_", "UBSAN_", "LSAN_")) or name == "TMPDIR"]
    env.update({name: os.environ[name] for name in kept})
    return env


class Desk:
    """The X server with all that stands on it; `env` is the environment of whatever is to appear there."""

    def __init__(self, servants, home):
        self.env = _environment(home)
        self._start_server(servants)
        _write(os.path.join(home, ".themes/Mesa/openbox-3/themerc"), _THEME)
        manager = _write(os.path.join(home, ".config/openbox/rc.xml"), _MANAGER)
        answer([tool("setxkbmap"), *KEYBOARD], env=self.env)
        answer([tool("xsetroot"), "-solid", DESKTOP], env=self.env)
        servants.start("openbox", [tool("openbox"), "--config-file", manager], env=self.env)
        wait_for("a window manager", self._is_managed)

    def _start_server(self, servants):
        """The server picks a free display by itself and says which; held keys don't repeat."""
        told, tell = os.pipe()
        self.server = servants.start(
            "Xvfb", [tool("Xvfb"), "-displayfd", str(tell), "-screen", "0", SCREEN + "x24", "-nolisten", "tcp",
                     "-noreset", "-r"], pass_fds=(tell,))
        os.close(tell)
        with os.fdopen(told) as number:
            self.env["DISPLAY"] = ":" + number.readline().strip()

    def _is_managed(self):
        seen = answer([tool("xprop"), "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.env, check=False)
        return "window id" in seen
