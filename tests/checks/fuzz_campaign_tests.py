"""A campaign of the fuzzers, with a program in the place of one: how it ends, and what it leaves."""

import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

CAMPAIGN = Path(__file__).parents[2] / "tools" / "fuzz-campaign"
FUZZER = "FileURLFuzzer"


class FuzzCampaignTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.build = Path(folder.name)
        (self.build / "fuzzers").mkdir()

    def start(self, script):
        program = self.build / "fuzzers" / FUZZER
        program.write_text(f"#!/bin/sh\n{script}\n", encoding="ascii")
        program.chmod(0o755)
        return subprocess.Popen([sys.executable, CAMPAIGN, "--build", self.build, FUZZER], stdout=subprocess.PIPE,
                                text=True)

    def test_no_fuzzer_is_left_where_the_campaign_is_ended_from_outside(self):
        number = self.build / "number"
        with self.start(f"echo $$ > {number}.new; mv {number}.new {number}; exec sleep 60") as campaign:
            while not number.exists():
                time.sleep(0.01)
            campaign.terminate()
            self.assertEqual(campaign.wait(), 128 + signal.SIGTERM)
        with self.assertRaises(ProcessLookupError):
            os.kill(int(number.read_text(encoding="ascii")), 0)

    def test_a_finding_ends_the_turns_of_its_fuzzer_and_is_reported(self):
        with self.start("echo 'Does not hold: all is well'; exit 77") as campaign:
            printed = campaign.communicate()[0]
        self.assertEqual(campaign.returncode, 1)
        self.assertIn("Does not hold: all is well", printed)


if __name__ == "__main__":
    unittest.main()
