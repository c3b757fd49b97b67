import json
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

from scenario import Scenario
from window import wait_until

BY_NAME = 2  # in the sort menu


class AppStore:
    """A local server that answers like the App Store."""

    def __init__(self, results):
        store = self
        self.paths = []

        class Handler(BaseHTTPRequestHandler):
            def do_GET(self):  # noqa: N802
                store.paths.append(self.path)
                body = json.dumps({"results": results}).encode()
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

        self.server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    @property
    def origin(self):
        return f"http://127.0.0.1:{self.server.server_port}"

    def close(self):
        self.server.shutdown()
        self.server.server_close()


class Apps(Scenario):
    def open_app_manager(self):
        window = self.start()
        window.pass_onboarding()
        # The dashboard has listed the applications before it shows its first score.
        window.go_to("App Manager")
        window.label("8 of 8 apps")
        return window

    def choose(self, window, app):
        rows = window.find("list", "Applications")
        row = next(row for row in rows.all("list item") if row.name.startswith(f"{app}, "))
        row.click()
        window.label("com.example." + app.replace(" ", ""))

    def test_shows_an_app_and_its_leftovers(self):
        store = AppStore([{"trackName": "Sketchbook", "description": "Draws.", "sellerName": "Example & Co",
                           "primaryGenreName": "Graphics", "averageUserRating": 4.5, "userRatingCount": 12}])
        self.addCleanup(store.close)
        self.machine.variables["KEELBRIGHT_TEST_STORE"] = store.origin
        window = self.open_app_manager()
        self.choose(window, "Sketchbook")
        window.label("Total: 148 MB")
        self.assertEqual(store.paths, [])
        window.button("Look Up on App Store").press()
        for text in ("Draws.", "Example & Co", "Graphics", "4.5 (12)"):
            window.label(text)
        self.assertEqual(store.paths, ["/search?term=Sketchbook&entity=macSoftware&limit=5&country=us"])

    def test_moves_an_app_with_its_files_to_the_trash(self):
        window = self.open_app_manager()
        self.choose(window, "Sketchbook")
        window.label("Total: 148 MB")
        window.button("Remove…").press()
        question = window.window("Remove \"Sketchbook\"?")
        question.label("Associated files (148 MB) will also be moved to Trash.")
        question.button("Move App + Files to Trash").press()
        window.label("7 of 7 apps")
        window.label("Select an app to see details")
        self.assertFalse((self.machine.root / "Applications/Sketchbook.app").exists())
        self.assertFalse((self.machine.home / "Library/Application Support/Sketchbook").exists())
        trash = self.machine.home / ".local/share/Trash/files"
        self.assertTrue((trash / "Sketchbook.app/Contents/Info.plist").exists())
        entry = self.machine.activity()[0]
        self.assertEqual((entry["title"], entry["detail"], entry["itemCount"]),
                         ("Sketchbook removed", "App + 9 leftover files moved to Trash", 10))

    def test_removes_an_application_alone(self):
        window = self.open_app_manager()
        self.choose(window, "Sketchbook")
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
        window = self.open_app_manager()
        window.find("text", "Search apps").write("SCAN")
        window.label("1 of 8 apps")
        window.row("Old Scanner")
        self.assertIsNone(window.row_seen("Sketchbook"))
        window.find("text", "Search apps").write("")
        window.label("8 of 8 apps")
        window.choose_from("Sort apps", BY_NAME)
        rows = window.find("list", "Applications")

        def names():
            return [item.name.split(",")[0] for item in rows.all("list item")]
        wait_until(lambda: names() and names() == sorted(names(), key=str.casefold), lambda: f"not by name: {names()}")
