"""Junk, applications and storage: what looks after the machine and moves things to the Trash."""

import json
import threading
from http.server import BaseHTTPRequestHandler, HTTPServer
from urllib.parse import parse_qs, urlparse

from keelbright import WINDOW
from scenario import Scenario
from window import wait_until


class JunkCleaner(Scenario):
    def setUp(self):
        super().setUp()
        self.logs = self.machine.home / "Library/Logs"

    def open_log_files(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("Dashboard")
        window.button("Quick Clean").press()
        window.choose_row("Log Files")
        window.row("DiagnosticReports")
        window.label("2 items · 17 MB total")
        return window

    def test_moves_what_is_ticked_to_the_trash_after_asking(self):
        window = self.open_log_files()
        window.label("Nothing selected")
        self.assertFalse(window.button("Move to Trash").is_enabled)
        window.choose_row("Sketchbook")
        window.keys(WINDOW, "space")
        window.label("1 item selected")
        window.button("Move to Trash").press()
        question = window.find("dialog", "Move 1 item to Trash?")
        question.label("Selected junk (3 MB) will be moved to Trash. Nothing is permanently deleted — you can restore "
                       "from Trash if needed.")
        window.answer("Move 1 item to Trash?", "Cancel")
        self.assertTrue((self.logs / "Sketchbook").exists())
        window.button("Move to Trash").press()
        window.answer("Move 1 item to Trash?", "Move to Trash")
        window.wait_row_gone("Sketchbook")
        window.label("Nothing selected")
        self.assertFalse((self.logs / "Sketchbook").exists())
        self.assertTrue((self.logs / "DiagnosticReports").exists())
        self.assertEqual(self.machine.trashed(), ["Sketchbook"])
        [entry] = self.machine.activity()
        self.assertEqual((entry["kind"], entry["title"], entry["itemCount"], entry["bytesAffected"]),
                         ("Junk Clean", "Junk files moved to Trash", 1, 3_000_000))

    def test_takes_a_whole_category_and_everything(self):
        window = self.open_log_files()
        window.find("panel" if window.seen("panel", "Junk items") else "list", "Junk items")
        window.button("Select All").press()
        wait_until(lambda: window.seen("button", "Deselect All") or window.seen("push button", "Deselect All"),
                   "nothing is selected")


class AppManager(Scenario):
    def open(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("App Manager")
        window.label("8 of 8 apps")
        return window

    def test_removes_an_application_with_its_leftovers(self):
        library = self.machine.home / "Library"
        window = self.open()
        window.choose_row("Sketchbook")
        window.label("v4.2.1")
        window.label("com.example.Sketchbook")
        window.row("com.example.Sketchbook.plist")
        window.button("Remove…").press()
        window.answer('Remove "Sketchbook"?', "Cancel")
        self.assertTrue((self.machine.root / "Applications/Sketchbook.app").exists())
        window.button("Remove…").press()
        window.answer('Remove "Sketchbook"?', "Move App + Files to Trash")
        window.label("7 of 7 apps")
        window.label("Select an app to see details")
        self.assertFalse((self.machine.root / "Applications/Sketchbook.app").exists())
        self.assertFalse((library / "Application Support/Sketchbook").exists())
        self.assertFalse((library / "Preferences/com.example.Sketchbook.plist").exists())
        self.assertIn("Sketchbook.app", self.machine.trashed())
        [entry] = self.machine.activity()
        self.assertEqual((entry["kind"], entry["title"]), ("App Removed", "Sketchbook removed"))
        self.assertTrue(entry["detail"].startswith("App + ") and entry["detail"].endswith(" moved to Trash"))

    def test_removes_an_application_alone(self):
        window = self.open()
        window.choose_row("Sketchbook")
        window.row("com.example.Sketchbook.plist")
        window.button("Remove…").press()
        window.answer('Remove "Sketchbook"?', "Move App Only to Trash")
        window.label("7 of 7 apps")
        self.assertEqual(self.machine.trashed(), ["Sketchbook.app"])
        self.assertTrue((self.machine.home / "Library/Application Support/Sketchbook").exists())
        [entry] = self.machine.activity()
        self.assertEqual((entry["detail"], entry["itemCount"], entry["bytesAffected"]),
                         ("App bundle moved to Trash", 1, 0))

    def test_filters_sorts_and_searches(self):
        window = self.open()
        window.find("text", "Search apps").write("SCAN")
        window.label("1 of 8 apps")
        window.row("Old Scanner")
        self.assertIsNone(window.row_seen("Sketchbook"))
        window.find("text", "Search apps").write("")
        window.label("8 of 8 apps")
        window.choose_from("Sort apps", "Name")
        names = [item.name.split(",")[0] for item in window.find("list", "Applications").all("list item")]
        self.assertEqual(names, sorted(names, key=str.casefold))

    def test_looks_up_a_description(self):
        store = Store(self)
        store.results = [{"trackName": "Harbour Mail", "sellerName": "Harbour Ltd", "primaryGenreName": "Productivity",
                          "description": "Mail that stays in the harbour.", "averageUserRating": 4.5,
                          "userRatingCount": 120}]
        window = self.open()
        window.choose_row("Harbour Mail")
        window.button("Look Up on App Store").press()
        window.label("Mail that stays in the harbour.")
        window.label("Harbour Ltd")
        window.label("4.5 (120)")
        self.assertEqual(store.asked, ["Harbour Mail"])
        store.results = []
        window.choose_row("Tidewater")
        window.button("Look Up on App Store").press()
        window.label("Not found on the Mac App Store.")


class Store:
    """A search service on this machine."""

    def __init__(self, scenario):
        self.results = []
        self.asked = []
        store = self

        class Handler(BaseHTTPRequestHandler):
            def do_GET(self):  # noqa: N802
                store.asked += parse_qs(urlparse(self.path).query)["term"]
                body = json.dumps({"resultCount": len(store.results), "results": store.results}).encode()
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

        server = HTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        scenario.addCleanup(server.server_close)
        scenario.addCleanup(server.shutdown)
        scenario.machine.extra_environment["KEELBRIGHT_TEST_STORE"] = f"http://127.0.0.1:{server.server_port}"


class StorageBrowser(Scenario):
    def setUp(self):
        super().setUp()
        self.lofoten = self.machine.home / "Pictures/Lofoten 2024"

    def open(self):
        window = self.start()
        window.pass_onboarding()
        window.go_to("Storage Browser")
        window.label("Choose a Folder to Explore")
        return window

    def test_walks_down_and_back(self):
        deep = self.machine.home / "Pictures/Lofoten 2024/Day one"
        deep.mkdir()
        (deep / "Evening.jpg").write_bytes(b"x" * 9_000)
        window = self.open()
        window.button("Home").press()
        window.choose_row("Pictures")
        window.choose_row("Lofoten 2024")
        window.choose_row("Day one")
        window.row("Evening.jpg")
        window.button("Back").press()
        window.row("IMG_4100.jpg")
        window.button("Pictures").press()
        window.row("Wedding")

    def test_shows_a_folder_in_three_ways(self):
        window = self.open()
        window.button("Pictures").press()
        window.row("Lofoten 2024")
        window.find("radio button", "Treemap").press()
        wait_until(lambda: [cell for cell in window.all() if cell.name.startswith("Wedding") and "350 KB" in cell.name],
                   "no cell of the treemap")
        window.find("radio button", "Largest Files").press()
        window.row("1")
        window.find("radio button", "List").press()
        window.row("Lofoten 2024")

    def test_moves_an_entry_to_the_trash(self):
        window = self.open()
        window.button("Pictures").press()
        window.choose_in_row("Wedding", "Move to Trash")
        question = window.find("dialog", 'Move "Wedding" to Trash?')
        question.label("This cannot be undone from here. You can recover it from the Trash.")
        window.answer('Move "Wedding" to Trash?', "Cancel")
        self.assertTrue((self.machine.home / "Pictures/Wedding").exists())
        window.choose_in_row("Wedding", "Move to Trash")
        window.answer('Move "Wedding" to Trash?', "Move to Trash")
        window.wait_row_gone("Wedding")
        self.assertEqual(self.machine.trashed(), ["Wedding"])

    def test_moves_a_large_file_to_the_trash(self):
        window = self.open()
        window.button("Downloads").press()
        window.row("ubuntu.ISO")
        window.find("radio button", "Largest Files").press()
        window.label("Top 5 largest files in Downloads")
        window.find("list", "Largest files").all("list item")[0].click(3)
        window.find("menu item", "Move to Trash").press()
        window.answer('Move "ubuntu.ISO" to Trash?', "Move to Trash")
        wait_until(lambda: not (self.machine.home / "Downloads/ubuntu.ISO").exists(), "the file stays")
        self.assertEqual(self.machine.trashed(), ["ubuntu.ISO"])

    def test_adds_a_folder_to_the_backup(self):
        window = self.open()
        window.button("Pictures").press()
        window.choose_in_row("Wedding", "Add to Backup Sources")
        wait_until(lambda: self.machine.config()["customSources"], "no source is added")
        [source] = self.machine.config()["customSources"]
        self.assertEqual(source["url"].rstrip("/"), (self.machine.home / "Pictures/Wedding").as_uri())

    def test_hands_a_folder_to_the_organizer(self):
        window = self.open()
        window.button("Downloads").press()
        window.row("ubuntu.ISO")
        window.button("Organise").press()
        window.label("Smart Organizer")
        window.button("Organise Now")
        window.label("5 files selected")
