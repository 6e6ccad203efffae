#!/usr/bin/env python3
"""Prints CHANGELOG.md in the form of a Debian changelog: debian_changelog.py CHANGELOG.md MAINTAINER

A version without a date gets SOURCE_DATE_EPOCH, or the current time if that is not set.
"""

import datetime
import email.utils
import os
import pathlib
import re
import sys
import textwrap
import time

page, maintainer = sys.argv[1:]
now = datetime.datetime.fromtimestamp(int(os.environ.get("SOURCE_DATE_EPOCH", time.time())), datetime.timezone.utc)
_, *versions = re.split(r"^## ", pathlib.Path(page).read_text(encoding="utf-8"), flags=re.MULTILINE)
entries = []
for version in versions:
    heading, *changes = re.split(r"^- ", version, flags=re.MULTILINE)
    day = re.search(r"\d{4}-\d\d-\d\d", heading)
    date = datetime.datetime.fromisoformat(f"{day[0]}T12:00:00+00:00") if day else now
    entries.append("\n".join((
        f"kelplib ({heading.split()[0]}) unstable; urgency=medium\n",
        *(textwrap.fill(" ".join(change.split()), 78, initial_indent="  * ", subsequent_indent="    ", break_long_words=False,
                        break_on_hyphens=False) for change in changes),
        f"\n -- {maintainer}  {email.utils.format_datetime(date)}\n")))
print("\n".join(entries), end="")
