"""Results of production tests: reports and lots as plain objects, archives of them, and a recorder.

    import zyn

    for run in zyn.read("lot/"):
        print(run.unit.serial, run.verdict, run["5 V"].value)

    zyn.archive("line.zya").measures("Current")

Values are in the unit that stands beside them, which has no prefix; durations are in seconds.
"""
from zyn import _zyn
from zyn._zyn import (
    Archive,
    ArchiveError,
    Error,
    Measurement,
    ReadError,
    RecordError,
    Recorder,
    Run,
    Runs,
    Unit,
    WriteError,
    __version__,
    archive,
    read,
)

__all__ = [
    "Archive", "ArchiveError", "Error", "Measurement", "ReadError", "RecordError", "Recorder", "Run", "Runs", "Unit",
    "WriteError", "archive", "read",
]

for _name in __all__:
    getattr(_zyn, _name).__module__ = "zyn"
del _name
