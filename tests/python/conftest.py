import os
import pathlib
import subprocess
import sys

import pytest

TOOL = os.environ["ZYN_TOOL"]
sys.path.append(str(pathlib.Path(__file__).parents[1] / "archive"))  # the slow readers


@pytest.fixture(scope="session")
def tool():
    def run(*arguments):
        # The sanitizers of the module are loaded before the interpreter; the tool brings its own.
        environment = {name: text for name, text in os.environ.items() if name != "LD_PRELOAD"}
        done = subprocess.run([TOOL, *map(str, arguments)], capture_output=True, text=True, env=environment)
        return done.stdout
    return run


@pytest.fixture(scope="session")
def lot(tmp_path_factory, tool):
    """The reports of a simulated lot."""
    folder = tmp_path_factory.mktemp("simulated") / "lot"
    tool("simulate", "-q", "-d", folder, "--panels", 40, "--seed", 1)
    return folder
