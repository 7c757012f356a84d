#!/usr/bin/env python3
"""What a desktop needs to know about the program passes the usual checks."""

import os
import subprocess
import sys
import xml.etree.ElementTree as xml

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data")
CHECKS = [["desktop-file-validate", "kelda.desktop"],
          ["appstreamcli", "validate", "--no-net", "kelda.metainfo.xml"]]

failed = 0
for check in CHECKS:
    failed += subprocess.run(check, cwd=DATA).returncode != 0
for name in ["kelda-mime.xml", "kelda.svg"]:
    xml.parse(os.path.join(DATA, name))
print(f"{len(CHECKS) - failed} passed, {failed} failed")
sys.exit(failed)
