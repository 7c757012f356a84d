"""A print service of a test's own: a cupsd on the loopback, in a folder of
its own, with queues that print, fail, stand still or refuse.

Nothing outside the folder is read or written, but for the programs and data
of the installed cups.
"""

import os
import shutil
import socket
import stat
import subprocess
import time

CUPSD_CONF = """
Listen 127.0.0.1:{port}
Browsing No
DefaultAuthType None
WebInterface No
PreserveJobHistory Yes
PreserveJobFiles Yes
IdleExitTimeout 0
<Location />
  Order allow,deny
  Allow from 127.0.0.1
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Order allow,deny
    Allow from 127.0.0.1
  </Limit>
</Policy>
"""

CUPS_FILES_CONF = """
ServerRoot {root}
ServerBin {root}/bin
RequestRoot {root}/spool
CacheDir {root}/cache
StateDir {root}/state
TempDir {root}/temp
AccessLog {root}/access_log
ErrorLog {root}/error_log
PageLog {root}/page_log
SystemGroup {group}
{user}
"""

# Backends are called with the job as arguments and read it from a file or
# from standard input; without arguments they list devices.
KEEP_BACKEND = """#!/bin/sh
[ $# = 0 ] && exit 0
cat "${{6:--}}" > {root}/printed.pdf
"""
FAIL_BACKEND = """#!/bin/sh
[ $# = 0 ] && exit 0
echo "ERROR: The paper is jammed" >&2
exit 1
"""


class PrivateCups:
    """Runs while the with-block does."""

    def __init__(self, root):
        self.root = root
        self.process = None
        self.env = {}

    def __enter__(self):
        os.chmod(self.root, 0o755)
        for name in ("spool", "cache", "state", "temp", "bin/backend", "ppd"):
            os.makedirs(os.path.join(self.root, name))
        os.chmod(os.path.join(self.root, "temp"), 0o1777)
        self._lay_out_programs()
        for _ in range(5):
            if self._start(_free_port()):
                return self
        raise RuntimeError("cupsd does not start: " + self.error_log())

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        if self.process and self.process.poll() is None:
            self.process.terminate()
            self.process.wait(10)

    def error_log(self):
        path = os.path.join(self.root, "error_log")
        if not os.path.exists(path):
            return ""
        with open(path, encoding="utf-8", errors="replace") as log:
            return log.read()

    def add_queue(self, name, device, *options):
        """Adds a queue that takes jobs; default unless told otherwise."""
        self.run("lpadmin", "-p", name, "-v", device, "-E", *options)

    def run(self, *command):
        subprocess.run(command, env=self.env, check=True,
                       capture_output=True, timeout=60)

    def job_files(self):
        """The documents that were sent, in the order of their jobs."""
        spool = os.path.join(self.root, "spool")
        return [os.path.join(spool, name) for name in sorted(os.listdir(spool))
                if name.startswith("d")]

    def _lay_out_programs(self):
        """The installed programs, with backends of our own."""
        installed = "/usr/lib/cups"
        own = os.path.join(self.root, "bin")
        for name in os.listdir(installed):
            if name != "backend":
                os.symlink(os.path.join(installed, name),
                           os.path.join(own, name))
        for name, text in (("keep", KEEP_BACKEND), ("fail", FAIL_BACKEND)):
            path = os.path.join(own, "backend", name)
            with open(path, "w", encoding="ascii") as script:
                script.write(text.format(root=self.root))
            os.chmod(path, stat.S_IRWXU)
        if os.geteuid() == 0:
            pdf = os.path.join(installed, "backend", "cups-pdf")
            shutil.copy(pdf, os.path.join(own, "backend", "cups-pdf"))

    def _start(self, port):
        user = "" if os.geteuid() == 0 else f"User {_user()}"
        group = "root" if os.geteuid() == 0 else _group()
        conf = os.path.join(self.root, "cupsd.conf")
        files = os.path.join(self.root, "cups-files.conf")
        with open(conf, "w", encoding="ascii") as out:
            out.write(CUPSD_CONF.format(port=port))
        with open(files, "w", encoding="ascii") as out:
            out.write(CUPS_FILES_CONF.format(root=self.root, user=user,
                                             group=group))
        self.env = dict(os.environ, CUPS_SERVER=f"127.0.0.1:{port}",
                        HOME=self.root, PATH=os.environ["PATH"] +
                        ":/usr/sbin")
        for name in ("LPDEST", "PRINTER"):
            self.env.pop(name, None)
        self.process = subprocess.Popen(
            ["/usr/sbin/cupsd", "-f", "-c", conf, "-s", files],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline and self.process.poll() is None:
            answer = subprocess.run(["lpstat", "-r"], env=self.env,
                                    capture_output=True, text=True,
                                    timeout=30, check=False)
            if "is running" in answer.stdout:
                return True
            time.sleep(0.05)
        self.stop()
        return False


def _free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def _user():
    import pwd
    return pwd.getpwuid(os.geteuid()).pw_name


def _group():
    import grp
    return grp.getgrgid(os.getegid()).gr_name
