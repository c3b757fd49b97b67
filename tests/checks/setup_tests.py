"""./run and ./test on a newcomer's machine: what is installed, and what is printed where that can't be done.

The tree is a copy of the scripts, and of all commands only those are there that a test puts into its folder
of commands: real ones for texts, stand-ins for apt-get, sudo, id, dpkg-query and cmake."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).parents[2]
REAL = ("bash", "env", "awk", "cat", "chmod", "dirname", "grep", "head", "mkdir", "nproc", "tail", "tee", "tr", "wc")
STAND_INS = {
    "id": "echo 1000",
    "dpkg-query": 'for name; do :; done; if grep -qxF "$name" installed; then printf installed; fi',
    "sudo": 'echo "sudo $*" >>calls; [ ! -e sudo-refuses ] || exit 1; if [ "$1" = -n ]; then shift; fi; exec "$@"',
    "apt-get": """echo "apt-get $1" >>calls
if [ "$1" = update ]; then
    if [ -e list-missing ]; then echo 'E: Failed to fetch a list: no address for the name'; exit 100; fi
elif [ -e packages-missing ]; then
    echo 'E: Unable to locate package cmake'; exit 100
else
    for word; do if [ "${word#-}" = "$word" ]; then echo "$word" >>installed; fi; done
fi""",
    "true": "",
    "cmake": """echo "cmake $*" >>calls
mkdir -p build/release/bin
printf '#!/bin/sh\\necho the window\\n' >build/release/bin/keelbright
chmod +x build/release/bin/keelbright""",
    "ctest": 'echo "ctest $1 $2" >>calls',
}


def packages_of(*sections):
    """The packages of those sections, in the list's order."""
    packages, inside = [], False
    for line in (ROOT / "tools/packages.txt").read_text(encoding="ascii").splitlines():
        if line.startswith("["):
            inside = line[1:-1] in sections
        elif inside and line and not line.startswith("#"):
            packages.append(line.split()[0])
    return packages


class SetUpTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = Path(folder.name)
        self.commands = self.tree / "commands"
        (self.tree / "tools").mkdir()
        (self.tree / ".ci").mkdir()
        self.commands.mkdir()
        for name in ("run", "test", ".ci/run", "tools/check-package", "tools/setup.sh", "tools/packages.txt"):
            shutil.copy(ROOT / name, self.tree / name)
        for name in REAL:
            (self.commands / name).symlink_to(shutil.which(name))
        for name, script in STAND_INS.items():
            self.put(self.commands / name, script)
        self.put(self.tree / "tools/on-virtual-display", 'echo "display for $*" >>calls')
        self.has_packages()

    def put(self, path, script):
        path.write_text(f"#!{shutil.which('bash')}\n{script}\n", encoding="ascii")
        path.chmod(0o755)

    def has_packages(self, *sections):
        (self.tree / "installed").write_text("".join(f"{name}\n" for name in packages_of(*sections)),
                                             encoding="ascii")

    def mark(self, name):
        (self.tree / name).touch()

    def start(self, script, display=":7"):
        variables = {"PATH": str(self.commands), "LC_ALL": "C.UTF-8"} | ({"DISPLAY": display} if display else {})
        return subprocess.run([self.tree / script], cwd=self.tree, env=variables, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, check=False)

    def calls(self):
        path = self.tree / "calls"
        return path.read_text(encoding="ascii").splitlines() if path.exists() else []

    def has_built(self):
        return any(call.startswith("cmake") for call in self.calls())

    def assert_asks_for_root(self, result, *sections):
        line = "apt-get update && apt-get install --no-install-recommends -y " + " ".join(packages_of(*sections))
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines()[:2],
                         ["This needs root. Run this as root, then start again:", f"  {line}"])
        self.assertFalse(self.has_built())

    def test_the_first_line_says_what_happens_and_how_long_it_takes(self):
        self.has_packages("build", "run", "test-build", "test", "tour")
        self.assertEqual(self.start("run").stdout.splitlines()[0],
                         "Keel Bright is built and started: some three minutes on two processors the first time, "
                         "seconds later.")
        self.assertEqual(self.start("test").stdout.splitlines()[0],
                         "Keel Bright is built and tested: some 25 minutes on two processors the first time, "
                         "ten later.")

    def test_what_is_missing_is_installed_by_sudo(self):
        result = self.start("run")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("apt-get install", self.calls())
        installed = (self.tree / "installed").read_text(encoding="ascii").split()
        self.assertEqual([name for name in installed if name in packages_of("build", "run")],
                         packages_of("build", "run"))
        self.assertIn("the window", result.stdout.splitlines())

    def test_without_sudos_permission_there_is_a_line_to_copy(self):
        self.mark("sudo-refuses")
        self.assert_asks_for_root(self.start("run"), "build", "run")
        self.assertEqual(self.calls(), ["sudo -n true"])

    def test_without_sudo_there_is_a_line_to_copy(self):
        (self.commands / "sudo").unlink()
        self.assert_asks_for_root(self.start("run"), "build", "run")

    def test_without_a_network_the_lists_are_named_as_the_cause(self):
        self.mark("list-missing")
        self.mark("packages-missing")
        result = self.start("run")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines()[:3],
                         ["E: Unable to locate package cmake",
                          "The lists of packages could not be fetched. Is there a network?",
                          "E: Failed to fetch a list: no address for the name"])
        self.assertIn("Stopped while installing packages", result.stderr)
        self.assertFalse(self.has_built())

    def test_packages_that_whole_lists_lack_are_named_with_all_that_has_to_be_there(self):
        for failure in ("E: Unable to locate package cmake", "E: Package 'cmake' has no installation candidate"):
            with self.subTest(failure):
                self.put(self.commands / "apt-get",
                         f'[ "$1" = update ] || {{ [ "$LC_ALL" = C ] && echo "{failure}"; exit 100; }}')
                result = self.start("run")
                self.assertEqual(result.returncode, 1)
                self.assertEqual(result.stderr.splitlines()[:3],
                                 [failure, "These lists of packages do not have them all.", "What has to be there:"])
                self.assertIn("Qt 6.4", result.stderr)
                self.assertNotIn("network", result.stderr)
                self.assertFalse(self.has_built())

    def test_another_failure_of_apt_is_not_blamed_on_the_lists(self):
        self.put(self.commands / "apt-get", '[ "$1" = update ] || { echo "E: No space left on device"; exit 100; }')
        result = self.start("run")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines()[0], "E: No space left on device")
        self.assertIn("Stopped while installing packages", result.stderr.splitlines()[1])

    def test_a_foreign_list_that_can_not_be_fetched_stops_nothing(self):
        self.mark("list-missing")
        self.assertEqual(self.start("run").returncode, 0)

    def test_another_system_learns_what_has_to_be_there_and_builds_with_what_it_has(self):
        (self.commands / "apt-get").unlink()
        (self.commands / "dpkg-query").unlink()
        result = self.start("run")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertIn("This system has no apt-get, so nothing is installed from here.\nWhat has to be there:\n",
                      result.stdout)
        self.assertIn("cmake --preset run -DKEELBRIGHT_SYMBOL_FONT=", result.stdout)
        self.assertIn("Qt 6.4", result.stdout)
        self.assertIn("the window", result.stdout)

    def test_who_only_runs_the_program_needs_nothing_of_the_tests(self):
        self.has_packages("build", "run")
        result = self.start("run")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual([call.partition(" -j")[0] for call in self.calls()],
                         ["cmake --preset run -DKEELBRIGHT_WERROR=OFF", "cmake --build --preset run"])
        for name in packages_of("test-build", "test", "check", "package"):
            self.assertNotIn(name, packages_of("build", "run", "tour"))

    def test_without_a_display_the_tour_is_prepared(self):
        self.has_packages("build", "run")
        result = self.start("run", display=None)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        installed = (self.tree / "installed").read_text(encoding="ascii").split()
        self.assertEqual([name for name in packages_of("tour") if name not in installed], [])
        self.assertIn("--target keelbright make-mac", " ".join(self.calls()))
        self.assertEqual(self.calls()[-1], "display for tools/tour/tour.py")

    def test_a_build_folder_that_has_tests_keeps_them(self):
        (self.tree / "build/release").mkdir(parents=True)
        (self.tree / "build/release/CMakeCache.txt").write_text("KEELBRIGHT_TESTS:BOOL=ON\n", encoding="ascii")
        self.has_packages("build", "run", "test-build")
        self.start("run")
        self.assertIn("cmake --preset release -DKEELBRIGHT_WERROR=OFF", self.calls())
        self.has_packages("build", "run")
        self.start("run")
        self.assertIn("cmake --preset run -DKEELBRIGHT_WERROR=OFF", self.calls())

    def test_the_tests_have_their_own_packages(self):
        self.has_packages("build", "run", "tour")
        self.mark("sudo-refuses")
        self.assert_asks_for_root(self.start("test"), "test-build", "test")

    def test_the_whole_check_installs_everything_before_it_configures_the_first_build(self):
        self.put(self.tree / "tools/check-sources", "echo check-sources >>calls; exit 1") # where this one ends
        result = self.start(".ci/run")
        self.assertEqual(result.returncode, 1)
        self.assertIn("Stopped while checking the sources.", result.stderr)
        calls = [call.partition(" -j")[0] for call in self.calls() if not call.startswith("sudo ")]
        self.assertEqual(calls, ["apt-get update", "apt-get install", "cmake --preset release -DKEELBRIGHT_WERROR=ON",
                                 "cmake --build --preset release", "ctest --preset release", "check-sources"])
        installed = (self.tree / "installed").read_text(encoding="ascii").split()
        wanted = packages_of("build", "run", "tour", "test-build", "test", "check", "package")
        self.assertEqual([name for name in wanted if name not in installed], [])

    def test_a_failed_test_ends_the_whole_check(self):
        self.has_packages("build", "run", "tour", "test-build", "test", "check", "package")
        self.put(self.commands / "ctest", "exit 8")
        result = self.start(".ci/run")
        self.assertEqual(result.returncode, 8)
        self.assertIn("Stopped while testing build/release", result.stderr)
        self.assertIn("Stopped while running ./test.", result.stderr)

    def test_a_build_without_the_package_says_how_it_gets_one(self):
        (self.commands / "rm").symlink_to(shutil.which("rm"))
        result = self.start("tools/check-package")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr.splitlines(),
                         ["build/release: configured without dpkg-shlibdeps: install dpkg-dev and file, "
                          "then configure again", "Stopped while packing the program."])


if __name__ == "__main__":
    unittest.main()
