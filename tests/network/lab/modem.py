#!/usr/bin/env python3
"""A modem without hardware: answers AT commands on a pseudo terminal.

Usage: modem.py FOLDER [RULES]

FOLDER/pts names the terminal once the modem answers; FOLDER/modem.log gets every command ("> AT...", with
the time before it) and every line of an answer ("< ..."). FOLDER/modem.sock, a stream socket, takes further rules and orders, a line
each, and answers "ok" to each:

    COMMAND => LINE|LINE    answers commands that begin with COMMAND so from now on; the last rule that fits holds
    COMMAND => silence      does not answer them
    forget                  forgets these rules, and the access points that it was told
    send LINE               says a line unasked: a call that is dropped, a change of the registration
    pin NUMBER              the SIM is locked with this number; puk NUMBER: until its PUK is given
    hang up                 closes the terminal and ends

RULES are such lines. Without any, the modem is registered at home and connects every call.
"""

import os
import pty
import selectors
import socket
import sys
import time
import tty

HOME = "+{0}: 2,1,\"00C3\",\"00001234\""

# What is answered to commands that begin so, before the final OK.
ANSWERS = {
    "AT+GCAP": ["+GCAP: +CGSM,+DS,+ES"],
    "AT+CGMI": ["Option N.V."],
    "AT+CGMM": ["GTM laboratory"],
    "AT+CGMR": ["1.0"],
    "AT+CGSN": ["490154203237518"],
    "AT+CIMI": ["001010123456789"],
    # Files of the SIM: its number, how long the network's code in its IMSI is, the operator's name. Without
    # the number ModemManager asks again for three seconds.
    "AT+CRSM=176,12258,": ["+CRSM: 144,0,\"98942000000000000013\""],
    "AT+CRSM=176,28589,": ["+CRSM: 144,0,\"00000002\""],
    "AT+CRSM=176,28486,": ["+CRSM: 144,0,\"004C61626F7261746F7279FFFFFFFFFFFF\""],
    "AT+CSQ": ["+CSQ: 20,99"],
    "AT+CFUN?": ["+CFUN: 1"],
    "AT_OWCTI?": ["_OWCTI: 4"],  # HSPA
    "AT+CREG?": [HOME.format("CREG")],
    "AT+CGREG?": [HOME.format("CGREG")],
    "AT+CGDCONT=?": ["+CGDCONT: (1-11),\"IP\",,,(0-2),(0-3)"],
    "AT_OWANDATA=": ["_OWANDATA: {cid}, 10.99.0.2, 0.0.0.0, 10.99.0.1, 10.99.0.3, 0.0.0.0, 0.0.0.0,72000"],
    "AT+CMEE=": [], "AT+CREG=": [], "AT+CGREG=": [], "AT$QCPDPP=": [], "ATE": [], "ATV": [], "ATX": [],
    "ATZ": [], "AT&": [], "AT+CFUN=": [],
}


class Modem:
    """State of the modem, and its answer to each command."""

    def __init__(self):
        self.rules = []
        self.contexts = {}
        self.lock = "READY"
        self.pin = ""
        self.puk = ""
        self.tries = 3
        self.calls = set()
        self.long_names = True

    def rule(self, line):
        command, _, answer = line.partition(" => ")
        self.rules = [r for r in self.rules if r[0] != command]
        self.rules.insert(0, (command, answer))

    def answer(self, command):
        """The lines to say, or None for none at all."""
        for start, answer in self.rules:
            if command.startswith(start):
                return None if answer == "silence" else answer.split("|")
        if command == "AT":
            return ["OK"]
        if self.lock != "READY" and command.startswith(("AT+CIMI", "AT+CRSM")):
            return ["+CME ERROR: 11"]
        for start, method in (("AT+CPIN", self.sim), ("AT+CGDCONT", self.context), ("AT+COPS", self.operator), ("AT_OWANCALL=", self.call),
                              ("AT+CGACT?", self.active)):
            if command.startswith(start) and command != "AT+CGDCONT=?":
                return method(command)
        for start, lines in ANSWERS.items():
            if command.startswith(start):
                cid = command.rpartition("=")[2]
                return [line.replace("{cid}", cid) for line in lines] + ["OK"]
        return ["ERROR"]

    def sim(self, command):
        if command == "AT+CPIN?":
            return ["+CPIN: " + self.lock, "OK"]
        given = [word.strip("\"") for word in command.partition("=")[2].split(",")]
        if self.lock == "SIM PUK":
            if len(given) == 2 and given[0] == self.puk:
                self.pin, self.lock, self.tries = given[1], "READY", 3
                return ["OK"]
            return ["+CME ERROR: 16"]
        if self.lock == "SIM PIN" and given == [self.pin]:
            self.lock, self.tries = "READY", 3
            return ["OK"]
        self.tries -= 1
        if self.tries == 0:
            self.lock = "SIM PUK"
            return ["+CME ERROR: 12"]
        return ["+CME ERROR: 16"]

    def operator(self, command):
        if command.startswith("AT+COPS=3,"):
            self.long_names = command.endswith(",0")
            return ["OK"]
        name, form = ("Laboratory", 0) if self.long_names else ("00101", 2)
        return [f"+COPS: 0,{form},\"{name}\",2", "OK"] if command == "AT+COPS?" else ["OK"]

    def context(self, command):
        if command == "AT+CGDCONT?":
            return [f"+CGDCONT: {cid},{rest}" for cid, rest in sorted(self.contexts.items())] + ["OK"]
        cid, _, rest = command.partition("=")[2].partition(",")
        self.contexts[cid] = rest + ",\"\",0,0"
        return ["OK"]

    def active(self, _command):
        return [f"+CGACT: {cid},{int(cid in self.calls)}" for cid in sorted(self.contexts)] + ["OK"]

    def call(self, command):
        cid, state = command.partition("=")[2].split(",")[:2]
        (self.calls.add if state == "1" else self.calls.discard)(cid)
        return ["OK", "", f"_OWANCALL: {cid}, {state}"]

    def order(self, line):
        """Takes a line of the socket; gives what is to be said unasked."""
        word, _, rest = line.partition(" ")
        if " => " in line:
            self.rule(line)
        elif word == "send":
            return rest.split("|")
        elif line == "forget":
            self.rules = []
            self.contexts = {}
        elif word == "pin":
            self.lock, self.pin, self.tries = "SIM PIN", rest, 3
        elif word == "puk":
            self.lock, self.puk = "SIM PUK", rest
        elif line == "hang up":
            sys.exit(0)
        elif line:
            raise ValueError(f"no order of the modem: {line}")
        return []


class Line:
    """The terminal: commands come in, answers go out, both are kept in the log."""

    def __init__(self, folder, modem):
        self.modem = modem
        self.log = open(folder + "/modem.log", "a", encoding="utf-8", buffering=1)
        self.end, self.other = pty.openpty()
        tty.setraw(self.other)
        self.input = b""
        name = folder + "/pts"
        with open(name + ".new", "w", encoding="utf-8") as file:
            file.write(os.ttyname(self.other))
        os.rename(name + ".new", name)

    def say(self, lines):
        for line in lines:
            self.log.write(f"< {line}\n")
        os.write(self.end, b"".join(b"\r\n" + line.encode() + b"\r\n" for line in lines if line))

    def read(self):
        self.input += os.read(self.end, 4096)
        while b"\r" in self.input:
            command, _, self.input = self.input.partition(b"\r")
            text = command.decode(errors="backslashreplace").strip()
            if not text:
                continue
            self.log.write(f"{time.time():.3f}> {text}\n")
            lines = self.modem.answer(text)
            if lines is not None:
                self.say(lines)


def take_orders(connection, modem, line, pending):
    data = connection.recv(4096)
    pending += data
    while b"\n" in pending:
        text, _, rest = bytes(pending).partition(b"\n")
        pending[:] = rest
        line.say(modem.order(text.decode()))
        connection.sendall(b"ok\n")
    return bool(data)


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    folder = sys.argv[1]
    modem = Modem()
    for text in (sys.argv[2] if len(sys.argv) > 2 else "").splitlines():
        modem.order(text)
    orders = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
    orders.bind(folder + "/modem.sock")
    os.chmod(folder + "/modem.sock", 0o666)
    orders.listen()
    line = Line(folder, modem)
    selector = selectors.DefaultSelector()
    selector.register(orders, selectors.EVENT_READ, None)
    selector.register(line.end, selectors.EVENT_READ, None)
    while True:
        for key, _ in selector.select():
            if key.fileobj == line.end:
                line.read()
            elif key.fileobj is orders:
                selector.register(orders.accept()[0], selectors.EVENT_READ, bytearray())
            elif not take_orders(key.fileobj, modem, line, key.data):
                selector.unregister(key.fileobj)
                key.fileobj.close()


if __name__ == "__main__":
    main()
