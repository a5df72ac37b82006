# SPDX-License-Identifier: GPL-3.0-or-later
"""Exact seeks of mpv without a window, as a peer to measure against: milliseconds until it has shown the new frame."""
import json
import socket
import subprocess
import tempfile
import time
from pathlib import Path


class _Player:
    def __init__(self, file, folder):
        self._path = Path(folder) / "mpv"
        self._process = subprocess.Popen(
            ["mpv", "--no-config", "--vo=null", "--ao=null", "--no-audio", "--hwdec=no", "--hr-seek=yes", "--pause",
             "--keep-open=yes", f"--input-ipc-server={self._path}", "--really-quiet", str(file)])
        self._socket = self._connected()
        self._bytes = b""

    def _connected(self):
        deadline = time.monotonic() + 20
        while time.monotonic() < deadline:
            try:
                channel = socket.socket(socket.AF_UNIX)
                channel.connect(str(self._path))
                channel.settimeout(30)
                return channel
            except OSError:
                time.sleep(0.05)
        raise SystemExit("mpv does not answer")

    def command(self, *words):
        self._socket.send((json.dumps({"command": words}) + "\n").encode())

    def event(self):
        while b"\n" not in self._bytes:
            part = self._socket.recv(65536)
            if not part:
                raise SystemExit("mpv has ended")
            self._bytes += part
        line, self._bytes = self._bytes.split(b"\n", 1)
        return json.loads(line)

    def close(self):
        self._process.terminate()
        self._process.wait()


def milliseconds(file, targets):
    with tempfile.TemporaryDirectory() as folder:
        player = _Player(file, folder)
        try:
            time.sleep(1.5)  # it opens the file and shows the first frame
            player.command("get_property", "duration")
            while "data" not in player.event():
                pass
            result = []
            for target in targets:
                begin = time.monotonic()
                player.command("seek", target, "absolute+exact")
                while player.event().get("event") != "playback-restart":
                    pass
                result.append((time.monotonic() - begin) * 1000)
                time.sleep(0.02)
            return result
        finally:
            player.close()
