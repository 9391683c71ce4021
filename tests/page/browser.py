"""A headless Chromium that is asked over a pipe: what a page became, and what it wanted from elsewhere."""
import base64
import json
import os
import shutil
import subprocess
import tempfile


class Browser:
    def __init__(self):
        self.profile = tempfile.mkdtemp()
        self.number, self.requests = 0, []
        to_browser, self.commands = os.pipe()
        self.answers, from_browser = os.pipe()
        # The browser reads from descriptor 3 and writes to 4.
        self.process = subprocess.Popen(
            ["sh", "-c", f'exec "$@" 3<&{to_browser} 4>&{from_browser}', "sh", "chromium", "--headless", "--no-sandbox",
             "--disable-gpu", "--no-first-run", "--disable-dev-shm-usage", "--disable-background-networking",
             "--disable-component-update", "--disable-sync", "--disable-quic", "--remote-debugging-pipe",
             "--user-data-dir=" + self.profile],
            pass_fds=(to_browser, from_browser), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self.rest, self.session = b"", None
        target = self.ask("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.ask("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        self.ask("Page.enable")
        self.ask("Network.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        shutil.rmtree(self.profile, ignore_errors=True)

    def message(self):
        while b"\0" not in self.rest:
            part = os.read(self.answers, 1 << 16)
            assert part, "the browser ended"
            self.rest += part
        text, self.rest = self.rest.split(b"\0", 1)
        message = json.loads(text)
        if message.get("method") == "Network.requestWillBeSent":
            self.requests.append(message["params"]["request"]["url"])
        assert message.get("method") != "Page.javascriptDialogOpening", "a script ran"
        return message

    def ask(self, method, **parameters):
        self.number += 1
        command = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            command["sessionId"] = self.session
        os.write(self.commands, json.dumps(command).encode() + b"\0")
        while True:
            message = self.message()
            if message.get("id") == self.number:
                assert "error" not in message, message
                return message["result"]

    def open(self, path, width=1100):
        self.size(width)
        self.requests.clear()
        self.ask("Page.navigate", url="file://" + path)
        while self.message().get("method") != "Page.loadEventFired":
            pass

    def size(self, width, height=900):
        self.ask("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def media(self, media="", scheme="light"):
        self.ask("Emulation.setEmulatedMedia", media=media, features=[{"name": "prefers-color-scheme", "value": scheme}])

    def evaluate(self, script):
        result = self.ask("Runtime.evaluate", expression=script, returnByValue=True)
        assert "exceptionDetails" not in result, result
        return result["result"].get("value")

    def press(self, key, code):
        for kind in ("keyDown", "keyUp"):
            self.ask("Input.dispatchKeyEvent", type=kind, key=key, code=key, windowsVirtualKeyCode=code)

    def picture(self, path):
        """The whole page as PNG."""
        with open(path, "wb") as file:
            file.write(base64.b64decode(self.ask("Page.captureScreenshot", captureBeyondViewport=True)["data"]))
