# SPDX-License-Identifier: GPL-3.0-or-later
"""What a report says on paper."""

from servants import answer, tool
from waiting import Broken


def text_of(path, what):
    """Text of a PDF file, line by line as it stands on the pages."""
    text = answer([tool("pdftotext"), "-layout", path, "-"])
    if not text.strip():
        raise Broken(f"{what}: the paper is blank")
    return text


def require(text, what, *words):
    for word in words:
        if word not in text:
            raise Broken(f"{what}: «{word}» isn't on the paper")
