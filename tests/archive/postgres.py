"""A private PostgreSQL server for tests: an ordinary user, a socket in a temporary folder, no TCP.

    postgres.py start FOLDER     starts one, also in place of one that a broken test run left; prints its URL
    postgres.py database FOLDER  makes a new, empty database on it and prints its URL
    postgres.py stop FOLDER      stops it and removes its data

FOLDER keeps where it is. Python tests use Server; C++ tests include archive/Server.h and are started by ctest with
the fixture archive_server. The superuser `zyn` needs no password: who can enter the socket's folder may connect.
"""
import contextlib
import glob
import os
import pathlib
import pwd
import shutil
import signal
import subprocess
import sys
import tempfile
import uuid

# Data of a test need not survive a power cut; a server that is killed loses nothing by these.
SETTINGS = {"listen_addresses": "", "fsync": "off", "full_page_writes": "off", "max_connections": "50"}


class Server:
    """With `with`: runs inside. PostgreSQL refuses root, so root starts it as another user."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="zyn-pg-", dir="/tmp")  # a socket's path has at most 107 bytes
        self.data = self.folder + "/data"

    def __enter__(self):
        signal.signal(signal.SIGTERM, lambda *_: sys.exit("terminated"))  # and so through __exit__
        self.create()
        return self

    def __exit__(self, *_):
        self.remove()

    @staticmethod
    def program(name):
        found = sorted(glob.glob("/usr/lib/postgresql/*/bin/" + name), key=lambda path: int(path.split("/")[4]))
        return found[-1] if found else shutil.which(name) or sys.exit(f"{name}: install the package postgresql")

    def run(self, name, *arguments):
        ids = {}
        if os.geteuid() == 0:
            user = pwd.getpwuid(os.stat(self.folder).st_uid)
            ids = {"user": user.pw_uid, "group": user.pw_gid, "extra_groups": []}
        # Not into a pipe: the server would inherit it, and who reads it would wait for the server.
        with open(self.folder + "/log", "a+", encoding="utf-8") as log:
            done = subprocess.run([self.program(name), *arguments], cwd=self.folder, stdin=subprocess.DEVNULL,
                                  stdout=log, stderr=log, check=False, **ids)
            if done.returncode:
                log.seek(0)
                sys.exit(f"{name} failed:\n{log.read()}")

    def create(self):
        if os.geteuid() == 0:
            users = {entry.pw_name: entry for entry in pwd.getpwall()}
            user = users.get("postgres") or users["nobody"]
            os.chown(self.folder, user.pw_uid, user.pw_gid)
        self.run("initdb", "--no-sync", "-A", "trust", "-U", "zyn", "-E", "UTF8", "--locale=C.UTF-8", "-D", self.data)
        with open(self.data + "/postgresql.conf", "a", encoding="utf-8") as settings:
            for key, value in {**SETTINGS, "unix_socket_directories": self.folder}.items():
                settings.write(f"{key} = '{value}'\n")
        self.start()

    def start(self):
        self.run("pg_ctl", "start", "-w", "-D", self.data)

    def stop(self, mode="fast"):
        """"immediate": as if it had been killed."""
        if os.path.exists(self.data + "/postmaster.pid"):
            self.run("pg_ctl", "stop", "-w", "-m", mode, "-D", self.data)

    def remove(self):
        self.stop("immediate")
        shutil.rmtree(self.folder)

    def url(self, database="postgres"):
        return f"postgresql://zyn@/{database}?host={self.folder}"

    def sql(self, database, text):
        """What psql prints for a statement, without ornaments."""
        return subprocess.run([self.program("psql"), "-XAtq", "-v", "ON_ERROR_STOP=1", "-c", text, self.url(database)],
                              check=True, capture_output=True, text=True).stdout.rstrip("\n")

    def file(self, database, path):
        """Runs a file of statements."""
        subprocess.run([self.program("psql"), "-Xq", "-v", "ON_ERROR_STOP=1", "-f", str(path), self.url(database)],
                       check=True, stdout=subprocess.DEVNULL)

    def database(self):
        """URL of a new, empty database."""
        name = "t" + uuid.uuid4().hex[:12]
        self.sql("postgres", f"CREATE DATABASE {name}")
        return self.url(name)


def known(folder):
    """The server that was started for a folder."""
    note = pathlib.Path(folder, "where")
    server = Server.__new__(Server)
    server.folder = note.read_text(encoding="utf-8") if note.exists() else ""
    server.data = server.folder + "/data"
    return server


def at_hand():
    """The server of the test run, else one of its own; for `with`."""
    folder = os.environ.get("ZYN_TEST_SERVER")
    return contextlib.nullcontext(known(folder)) if folder else Server()


def main(command, folder):
    note, old = pathlib.Path(folder, "where"), known(folder)
    if command == "database":
        print(old.database())
        return
    if os.path.isdir(old.folder):
        old.remove()
    note.unlink(missing_ok=True)
    if command == "start":
        note.parent.mkdir(parents=True, exist_ok=True)
        new = Server()
        note.write_text(new.folder, encoding="utf-8")
        new.create()
        print(new.url())


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in ("start", "database", "stop"):
        sys.exit(__doc__)
    main(*sys.argv[1:])
