#!/usr/bin/env python3
"""What vornctl says of devices, and of what keeps links from opening; one class for each kind of laboratory.

Usage, in the laboratory that a class names: diagnosis_test.py VORNCTL -- CLASS
"""

import errno
import json
import os
import shlex
import signal
import subprocess

import programs


class Diagnosis(programs.Programs):
    owner = "root"  # of the profiles

    def setUp(self):
        super().setUp()
        subprocess.run(["chown", "-R", self.owner, self.folder], check=True)
        self.ctl("profile", "create", "Internet", "apn=internet.example")

    def devices(self):
        listed = json.loads(self.ctl("device", "list", "--json").stdout)
        for device in listed:
            shown = json.loads(self.ctl("device", "show", device["port"], "--json").stdout)
            self.assertEqual(shown, device)
        return {device["port"]: device for device in listed}


class WithModem(Diagnosis):
    """--modem"""

    def test_a_modem_that_is_ready_is_listed_with_all_that_is_known_of_it(self):
        modem = self.devices()["ttyHS0"]
        self.assertEqual(modem, {
            "interface": "ttyHS0", "port": "ttyHS0", "kind": "modem", "state": "disconnected",
            "operator": "Laboratory", "operator-code": "00101", "technology": "hspa", "registration": "home",
            "signal": 64, "sim": "ready", "cause": 0, "detail": 0, "problem": "", "remedy": ""})

    def test_an_ethernet_is_listed_without_what_only_modems_have(self):
        wire = self.devices()["eth9"]
        self.assertEqual((wire["kind"], wire["state"], wire["signal"], wire["sim"]),
                         ("ethernet", "disconnected", None, ""))

    def test_a_modem_that_is_up_is_shown_with_its_interface(self):
        with subprocess.Popen([self.vornctl, "link", "open", "--hold", "Internet"], env=self.environment,
                              text=True, stdout=subprocess.PIPE) as held:
            while "10.99.0.2" not in held.stdout.readline():
                pass
            modem = json.loads(self.ctl("device", "show", "hso0", "--json").stdout)
            held.send_signal(signal.SIGINT)
        self.assertEqual((modem["interface"], modem["port"], modem["state"]), ("hso0", "ttyHS0", "connected"))

    def test_a_device_that_is_not_there_is_told(self):
        self.assertIn("hso7", self.ctl("device", "show", "hso7", status=16).stderr)

    def test_nothing_keeps_the_link_from_opening(self):
        self.assertEqual(self.findings(), {})

    def test_a_profile_without_an_access_point_is_found(self):
        self.ctl("profile", "create", "Bare")
        (path, (problem, remedy)), = self.findings().items()
        self.assertTrue(path.endswith("/Bare/profile"))
        self.assertIn("no access point", problem)
        self.assertIn("vornctl profile set NAME apn=", remedy)

    def test_mobile_data_that_is_switched_off_is_found_and_left_off(self):
        subprocess.run(["nmcli", "radio", "wwan", "off"], check=True)
        self.addCleanup(programs.until, lambda: programs.state("ttyHS0") == 30)
        self.addCleanup(subprocess.run, ["nmcli", "radio", "wwan", "on"], check=True)
        problem, remedy = self.findings()["ttyHS0"]
        self.assertEqual(problem, "it is switched off")
        self.assertIn("nmcli radio all on", remedy)
        self.assertEqual(self.devices()["ttyHS0"]["cause"], 2)
        self.assertEqual(self.failure("Internet")[:2], (2, 900))
        radio = subprocess.run(["nmcli", "radio", "wwan"], stdout=subprocess.PIPE, text=True, check=True)
        self.assertEqual(radio.stdout, "disabled\n")

    def test_a_modem_that_is_denied_is_found(self):
        for answer in ("CREG", "CGREG"):
            programs.order(f"AT+{answer}? => +{answer}: 2,3|OK")
        programs.order("send +CREG: 3|+CGREG: 3")
        self.addCleanup(self.register_again)
        self.assertTrue(programs.until(lambda: "ttyHS0" in self.findings()))
        problem, remedy = self.findings()["ttyHS0"]
        self.assertIn("not registered (denied)", problem)
        self.assertIn("operator", remedy)
        self.assertEqual(self.devices()["ttyHS0"]["registration"], "denied")
        self.assertEqual(self.failure("Internet")[0], 2)

    def register_again(self):
        programs.order("forget")
        programs.order('send +CREG: 1,"00C3","00001234"|+CGREG: 1,"00C3","00001234"')
        self.assertTrue(programs.until(lambda: not self.findings()))

    def test_services_that_do_not_run_or_do_not_answer_are_told_apart(self):
        programs.kill("nm", signal.SIGSTOP)
        problem, remedy = self.findings()["org.freedesktop.NetworkManager"]
        self.assertEqual((problem, remedy), ("NetworkManager does not answer",
                                             "sudo systemctl restart NetworkManager"))
        programs.kill("nm", signal.SIGCONT)
        programs.kill("nm", signal.SIGKILL)
        problem, remedy = self.findings()["org.freedesktop.NetworkManager"]
        self.assertEqual(problem, "NetworkManager does not run")
        self.assertIn("apt install network-manager", remedy)
        self.assertIn(problem, self.ctl("device", "list", status=21).stderr)
        self.assertEqual(self.failure("Internet")[:2], (10, 0))
        programs.daemon("nm")
        self.assertTrue(programs.until(lambda: programs.state("ttyHS0") == 30))

    def test_a_modem_service_that_does_not_run_is_found(self):
        programs.kill("mm", signal.SIGKILL)
        self.assertTrue(programs.until(lambda: programs.state("ttyHS0") == 0))
        problem, remedy = self.findings()["org.freedesktop.ModemManager1"]
        self.assertEqual(problem, "ModemManager does not run")
        self.assertIn("apt install modemmanager", remedy)
        self.assertEqual(self.failure("Internet")[:2], (10, 0))
        self.assertIn("ModemManager", self.ctl("profile", "create", "Other", "--from-sim", status=16).stderr)
        programs.daemon("mm")
        self.assertTrue(programs.until(lambda: programs.state("ttyHS0") == 30))


class WithoutModem(Diagnosis):
    """no option"""

    device = "eth9"

    def test_what_is_missing_is_found(self):
        self.assertEqual(self.findings()["org.freedesktop.ModemManager1"][0], "ModemManager does not run")
        self.assertEqual(list(self.devices()), ["eth9"])
        self.assertEqual(self.failure("Internet")[:2], (10, 0))

    def test_a_modem_service_that_knows_no_modem_is_not_a_service_that_does_not_run(self):
        service = subprocess.Popen(["ModemManager"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(service.wait)
        self.addCleanup(service.kill)
        self.assertTrue(programs.until(lambda: "packet data" in self.findings()))
        problem, remedy = self.findings()["packet data"]
        self.assertEqual(problem, "there is no modem")
        self.assertIn("mmcli --list-modems", remedy)
        self.assertEqual(self.failure("Internet")[:2], (1, 768 + errno.ENODEV))


class WithLockedSim(Diagnosis):
    """--modem --say 'pin 1234'"""

    def test_the_lock_is_found_and_its_remedy_opens_it(self):
        self.configure({"bearer": "networkmanager", "guards": {"secretMs": 500}})
        problem, remedy = self.findings()["ttyHS0"]
        self.assertEqual(problem, "the SIM card asks for its PIN")
        modem = self.devices()["ttyHS0"]
        self.assertEqual((modem["sim"], modem["problem"]), ("pin", problem))
        self.assertEqual(self.failure("Internet")[0], 3)
        self.assertIn("locked", self.ctl("profile", "create", "Other", "--from-sim", status=16).stderr)
        subprocess.run(shlex.split(remedy.replace("NUMBER", "1234")), check=True, stdout=subprocess.DEVNULL)
        self.assertTrue(programs.until(lambda: not self.findings()))
        self.assertIn("10.99.0.2", self.ctl("link", "open", "Internet").stdout)


class WithoutRights(Diagnosis):
    """--modem --rights; the programs are those of an ordinary user"""

    owner = "nobody"
    user = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"]

    def setUp(self):
        super().setUp()
        self.addCleanup(self.refuse, "yes")

    @staticmethod
    def refuse(action):
        with open("/run/lab/polkit", "w", encoding="ascii") as file:
            file.write(action + "\n")

    def assert_granting(self, text):
        """One line that writes a rule, for this user and for both rights."""
        line, = [line for line in text.splitlines() if "polkit.addRule" in line]
        rules = os.path.join(self.folder, "rules")
        written = subprocess.run(["sh", "-c", line.replace("sudo tee /etc/polkit-1/rules.d/50-links.rules",
                                                           "tee " + rules)], stdout=subprocess.DEVNULL,
                                 stderr=subprocess.PIPE, text=True, check=True)
        self.assertEqual(written.stderr, "")
        with open(rules, encoding="utf-8") as file:
            rule = file.read()
        self.assertRegex(rule, r"^polkit\.addRule\(function\(action, subject\) \{.*\}\);\n$")
        for part in ('subject.user == "nobody"', '"org.freedesktop.NetworkManager.network-control"',
                     '"org.freedesktop.NetworkManager.settings.modify.own"', "polkit.Result.YES"):
            self.assertIn(part, rule)

    def test_a_right_that_is_missing_is_told_with_the_line_that_grants_it(self):
        self.refuse("org.freedesktop.NetworkManager.network-control")
        problem, remedy = self.findings()["org.freedesktop.NetworkManager"]
        self.assertEqual(problem, "this user may not open links")
        self.assert_granting(remedy)
        cause, _, told = self.failure("Internet")
        self.assertEqual(cause, 11)
        self.assert_granting(told)

    def test_the_right_to_have_connections_of_ones_own_is_needed_too(self):
        self.refuse("org.freedesktop.NetworkManager.settings.modify.own")
        self.assert_granting(self.findings()["org.freedesktop.NetworkManager"][1])
        self.assertEqual(self.failure("Internet")[0], 11)

    def test_the_rights_of_an_ordinary_user_dial_and_hang_up(self):
        self.refuse("org.freedesktop.NetworkManager.settings.modify.system")
        self.assertEqual(self.findings(), {})
        self.assertIn("10.99.0.2", self.ctl("link", "open", "Internet").stdout)


if __name__ == "__main__":
    programs.main()
