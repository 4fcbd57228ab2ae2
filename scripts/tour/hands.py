# SPDX-License-Identifier: GPL-3.0-or-later
"""Keys and clicks as a user gives them."""

import subprocess

from servants import answer, tool
from waiting import wait_for

_NOTHING = "nothing was copied"


class Hands:
    def __init__(self, env):
        self._env = env
        self._xdotool = tool("xdotool")
        self._xclip = tool("xclip")

    def press(self, *keys):
        """Keys by their names, one after the other: "Tab", "alt+g"."""
        answer([self._xdotool, "key", "--delay", "5", *keys], env=self._env)

    def type(self, text):
        answer([self._xdotool, "type", "--delay", "8", "--", text], env=self._env)

    def click(self, place, button=1, times=1):
        """Moves the pointer to (x, y) of the screen and clicks there."""
        x, y = place
        answer([self._xdotool, "mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60",
                str(button)], env=self._env)

    def copied(self, *keys):
        """Presses the keys that copy something, and returns what then is in the clipboard."""
        subprocess.run([self._xclip, "-i", "-selection", "clipboard"], input=_NOTHING, text=True, env=self._env,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
        self.press(*keys)
        wait_for("a copy in the clipboard", lambda: self._clipboard() != _NOTHING)
        return self._clipboard()

    def _clipboard(self):
        return answer([self._xclip, "-o", "-selection", "clipboard"], env=self._env, check=False)
