# SPDX-License-Identifier: MIT
"""An X server for a test, and a client that asks for the clipboard step by step.

The client speaks the X protocol by hand (X Window System Protocol, X11R7): a reader that stops, vanishes or
asks for several things at once is none of the usual programs.
"""

import os
import select
import shutil
import socket
import struct
import subprocess

PROPERTY_NOTIFY = 28
SELECTION_NOTIFY = 31
CURRENT_TIME = 0
NONE = 0
ATOM = 4
PATIENCE = 60  # seconds until a test counts as stuck


class XServer:
    """A server whose screen nobody sees, on a display that is free."""

    def __init__(self, screen="64x64x24"):
        if not shutil.which("Xvfb"):
            raise RuntimeError("Xvfb is missing (Debian: xvfb)")
        reader, writer = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp", "-screen", "0", screen],
            pass_fds=[writer], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(writer)
        with open(reader, "rb") as answer:
            number = answer.readline().decode().strip()
        if not number:
            self.stop()
            raise RuntimeError("Xvfb does not start")
        self.number = int(number)
        self.display = ":" + number

    def stop(self):
        self.process.kill()
        self.process.wait()


def xclip(server, *arguments):
    return subprocess.Popen(["xclip", "-display", server.display, "-selection", "clipboard", *arguments],
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)


def read_clipboard(server, target):
    process = xclip(server, "-o", "-t", target)
    data, _ = process.communicate(timeout=PATIENCE)
    if process.returncode != 0:
        raise AssertionError(f"xclip gets no {target}")
    return data


def copy_text(server, text):
    """As another program does. It stays in the background until its turn is over."""
    subprocess.run(["xclip", "-display", server.display, "-selection", "clipboard", "-i"], input=text,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE, check=True)


def padded(data):
    return data + bytes(-len(data) % 4)


class XClient:
    """A connection with one window, and what it asks for."""

    def __init__(self, server):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(PATIENCE)
        self.socket.connect(f"/tmp/.X11-unix/X{server.number}")
        self.socket.sendall(struct.pack("<BxHHHHxx", ord("l"), 11, 0, 0, 0))
        status, length = struct.unpack("<B5xH", self.receive(8))
        setup = self.receive(4 * length)
        if status != 1:
            raise RuntimeError("the server refuses the connection")
        base, vendor = struct.unpack_from("<I8xH", setup, 4)
        root = struct.unpack_from("<I", setup, 32 + len(padded(bytes(vendor))) + 8 * setup[21])[0]
        self.window = base
        self.events = []
        # no drawing; property changes are told
        self.request(1, 0, struct.pack("<IIhhHHHHIII", base, root, 0, 0, 1, 1, 0, 2, 0, 0x800, 1 << 22))

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.socket.close()

    def receive(self, count):
        data = bytearray()
        while len(data) < count:
            part = self.socket.recv(count - len(data))
            if not part:
                raise RuntimeError("the server ended the connection")
            data += part
        return bytes(data)

    def request(self, opcode, detail, data):
        self.socket.sendall(struct.pack("<BBH", opcode, detail, 1 + len(data) // 4) + data)

    def message(self):
        head = self.receive(32)
        if head[0] == 0:
            raise RuntimeError(f"X error {head[1]} of request {head[10]}")
        if head[0] == 1:
            return head + self.receive(4 * struct.unpack_from("<I", head, 4)[0])
        return head

    def reply(self):
        while (message := self.message())[0] != 1:
            self.events.append(message)
        return message

    def event(self, kind, wanted):
        """The next event of that kind with these 32-bit fields (by their offset), which is taken out."""
        def fits(event):
            return event[0] & 0x7F == kind and all(
                struct.unpack_from("<I", event, at)[0] == value for at, value in wanted.items())
        for event in self.events:
            if fits(event):
                self.events.remove(event)
                return event
        while not fits(event := self.message()):
            self.events.append(event)
        return event

    def atom(self, name):
        self.request(16, 0, struct.pack("<HH", len(name), 0) + padded(name.encode()))
        return struct.unpack_from("<I", self.reply(), 8)[0]

    def set_words(self, name, kind, words):
        data = struct.pack(f"<{len(words)}I", *words)
        self.request(18, 0, struct.pack("<IIIBxxxI", self.window, self.atom(name), self.atom(kind), 32,
                                        len(words)) + data)

    def take(self, name):
        """The property's type, width and bytes; it is deleted with that."""
        property_atom = self.atom(name)
        self.request(20, 1, struct.pack("<IIIII", self.window, property_atom, 0, 0, 1 << 24))
        reply = self.reply()
        # its changes up to here, the deletion being the last of them
        self.events = [event for event in self.events if event[0] != PROPERTY_NOTIFY or
                       struct.unpack_from("<I", event, 8)[0] != property_atom]
        kind, rest, count = struct.unpack_from("<III", reply, 8)
        if rest:
            raise RuntimeError("the property is longer than was asked for")
        return kind, reply[1], reply[32:32 + count * reply[1] // 8]

    def take_words(self, name):
        data = self.take(name)[2]
        return list(struct.unpack(f"<{len(data) // 4}I", data))

    def ask(self, target, name, time=CURRENT_TIME):
        """Asks for the clipboard in that property (None for none). Returns the property of the answer."""
        property_atom = self.atom(name) if name else NONE
        self.request(24, 0, struct.pack("<IIIII", self.window, self.atom("CLIPBOARD"), self.atom(target),
                                        property_atom, time))
        answer = self.event(SELECTION_NOTIFY, {8: self.window, 16: self.atom(target)})
        return struct.unpack_from("<I", answer, 20)[0]

    def copy(self):
        """Takes the clipboard."""
        self.request(22, 0, struct.pack("<III", self.window, self.atom("CLIPBOARD"), CURRENT_TIME))

    def next_piece(self, name):
        """Of a transfer whose announcement or last piece has been taken."""
        self.event(PROPERTY_NOTIFY, {8: self.atom(name)})
        return self.take(name)

    def all_pieces(self, name):
        data = b""
        while piece := self.next_piece(name)[2]:
            data += piece
        return data
