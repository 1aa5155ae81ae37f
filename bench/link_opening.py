"""Measures links over the real NetworkManager, each figure against its yardstick in the same run.

Usage: tests/network/lab/lab --modem python3 bench/link_opening.py LINK_TIMER VORNCTL [--rounds N]

- From NAPI_OpenLink to CONNECTED, for packet data and Ethernet: at most the service's own time, which a
  watcher of the bus takes from the call to ACTIVATED, plus 2 ms; and not slower than "nmcli connection up"
  of the same connection. Medians; the first opening of a program, which goes on the bus and asks what
  there is, is told apart as well.
- NAPI_CloseLink while the modem is dialled: at most 5 ms.
- After kill -9 of the program the device is down within 200 ms.
- An idle link wakes nobody up, also while the service tells of other devices.
- Memory of a program with one link: at most 500 KiB more than with the bearer "machine".

Ends with 1 when a limit is missed.
"""

import argparse
import json
import os
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time

ACTIVE = "org.freedesktop.NetworkManager.Connection.Active"
DEVICE = "org.freedesktop.NetworkManager.Device"

kept = True


def judge(what, value, limit, unit):
    global kept
    kept = kept and value <= limit
    print(f"{what:<52} {value:9.2f} {unit} (limit {limit:.2f}): {'kept' if value <= limit else 'MISSED'}")


class Watcher(threading.Thread):
    """Keeps what goes over the bus: (seconds, member, first argument, path)."""

    def __init__(self):
        super().__init__(daemon=True)
        self.seen = []
        self.process = subprocess.Popen(
            ["busctl", "--address", os.environ["DBUS_SYSTEM_BUS_ADDRESS"], "--json=short", "monitor"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.start()
        time.sleep(0.5)

    def run(self):
        for line in self.process.stdout:
            message = json.loads(line)
            member = message.get("member")
            if member in ("AddAndActivateConnection2", "ActivateConnection", "StateChanged"):
                data = message.get("payload", {}).get("data") or [None]
                self.seen.append((message["timestamp-realtime"] / 1e6, member, data[0],
                                  message.get("interface"), message.get("path")))

    def services_own_times(self):
        """Milliseconds from each call to the ACTIVATED that follows it."""
        times, called = [], None
        for seconds, member, first, interface, _ in self.seen:
            if member != "StateChanged":
                called = seconds
            elif interface == ACTIVE and first == 2 and called:
                times.append((seconds - called) * 1e3)
                called = None
        return times

    def stop(self):
        time.sleep(0.3)
        self.process.kill()
        self.process.wait()
        self.join()


def wait_state(device, wanted, seconds=10):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        shown = subprocess.run(["nmcli", "-g", "GENERAL.STATE", "device", "show", device], check=False,
                               stdout=subprocess.PIPE, text=True).stdout
        if shown.startswith(str(wanted)):
            return
        time.sleep(0.02)
    sys.exit(f"{device} does not come to state {wanted}")


def opening(timer, profile, device, nmcli_profile, rounds):
    watcher = Watcher()
    told = subprocess.run([timer, "open", profile, str(rounds)], check=True, stdout=subprocess.PIPE, text=True)
    watcher.stop()
    ours, closing = [], []
    for line in told.stdout.splitlines():
        begin, end, close = map(int, line.split())
        ours.append((end - begin) / 1e3)
        closing.append(close / 1e3)
    service = watcher.services_own_times()
    wait_state(device, 30)
    subprocess.run(["nmcli", "connection", "add", "con-name", "yardstick", "autoconnect", "no", *nmcli_profile],
                   check=True, stdout=subprocess.DEVNULL)
    yardstick = []
    for _ in range(rounds):
        start = time.perf_counter()
        subprocess.run(["nmcli", "connection", "up", "yardstick"], check=True, stdout=subprocess.DEVNULL)
        yardstick.append((time.perf_counter() - start) * 1e3)
        subprocess.run(["nmcli", "connection", "down", "yardstick"], check=True, stdout=subprocess.DEVNULL)
        time.sleep(0.2)
    subprocess.run(["nmcli", "connection", "delete", "yardstick"], check=True, stdout=subprocess.DEVNULL)
    print(f"{profile}: the service's own time {statistics.median(service):.2f} ms ({len(service)} openings), "
          f"close of a link that is up {statistics.median(closing):.2f} ms")
    print(f"{profile}: beyond the service's own time the first opening takes {ours[0] - service[0]:.2f} ms, "
          f"the others {statistics.median(a - b for a, b in zip(ours[1:], service[1:])):.2f} ms (median)")
    median = statistics.median(ours)
    judge(f"{profile}: NAPI_OpenLink to CONNECTED", median, statistics.median(service) + 2, "ms")
    judge(f"{profile}: the same against nmcli connection up", median, statistics.median(yardstick), "ms")


def cancelling(timer):
    told = subprocess.run([timer, "cancel", "Packet", "40", "3"], check=True, stdout=subprocess.PIPE, text=True)
    judge("Packet: NAPI_CloseLink while dialling, the slowest", max(map(int, told.stdout.split())) / 1e3, 5, "ms")
    wait_state("ttyHS0", 30)


def killing(timer, profile, device, rounds=5):
    times = []
    for _ in range(rounds):
        watcher = Watcher()
        with subprocess.Popen([timer, "hold", profile], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as held:
            held.stdout.readline()
            killed = time.time()
            held.send_signal(signal.SIGKILL)
        wait_state(device, 30)
        watcher.stop()
        down = [seconds for seconds, _, first, interface, _ in watcher.seen
                if interface == DEVICE and first == 30 and seconds > killed]
        times.append((down[0] - killed) * 1e3)
    judge(f"{profile}: kill -9 to device down, the slowest", max(times), 200, "ms")


def ask(held):
    held.stdin.write("\n")
    held.stdin.flush()
    return list(map(int, held.stdout.readline().split()))


def idling(timer, profile):
    with subprocess.Popen([timer, "hold", profile], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True) as held:
        held.stdout.readline()
        time.sleep(3)
        before = ask(held)
        time.sleep(10)
        idle = ask(held)
        judge(f"{profile}: wake-ups of an idle link in 10 s", idle[0] - before[0], 0, "  ")
        for _ in range(10):
            # Only the bus hears of it; the kernel has nothing to say.
            subprocess.run("nmcli device set eth9 autoconnect no; nmcli device set eth9 autoconnect yes",
                           shell=True, check=True)
        time.sleep(1)
        busy = ask(held)
        judge(f"{profile}: wake-ups by ten changes of another device", busy[0] - idle[0], 0, "  ")
        return busy[2]


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("timer")
    arguments.add_argument("vornctl")
    arguments.add_argument("--rounds", type=int, default=20)
    options = arguments.parse_args()
    with tempfile.TemporaryDirectory() as root:
        os.environ["VORN_ROOT"] = root
        os.mkdir(root + "/etc")
        config = {"bearer": "networkmanager", "interfaces": {"wifi": "eth9"}}

        def configure():
            with open(root + "/etc/network.json", "w", encoding="utf-8") as file:
                json.dump(config, file)

        configure()
        for words in (["Packet", "apn=internet.example", "user=u", "--password"], ["Wired", "preference=wifi-only"]):
            subprocess.run([options.vornctl, "profile", "create", *words], check=True, input="p\n", text=True)
        opening(options.timer, "Wired", "eth9", ["type", "ethernet", "ifname", "eth9"], options.rounds)
        opening(options.timer, "Packet", "ttyHS0",
                ["type", "gsm", "ifname", "ttyHS0", "apn", "internet.example", "user", "u", "password", "p"],
                options.rounds)
        cancelling(options.timer)
        killing(options.timer, "Wired", "eth9")
        killing(options.timer, "Packet", "ttyHS0")
        memory = idling(options.timer, "Packet")
        wait_state("ttyHS0", 30)
        config = {"bearer": "machine", "interfaces": {"cellular": "lo"}}
        configure()
        judge("memory of one link more than over the machine", memory - idling(options.timer, "Packet"), 500, "KiB")
    sys.exit(not kept)


if __name__ == "__main__":
    main()
