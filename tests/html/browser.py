"""A browser without a window, that looks at one page after the other and tells what they did."""

import json
import os
import shutil
import sys
import tempfile

SKIPPED = 77
CHROMIUM = "/usr/bin/chromium"
CHROMEDRIVER = "/usr/bin/chromedriver"

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
except ImportError:
    webdriver = None

SWITCHES = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
            "--disable-background-networking", "--disable-component-update", "--disable-sync",
            "--window-size=1280,800"]


def skip_unless_there():
    """Ends the program where there is no browser to test with."""
    for path in (CHROMIUM, CHROMEDRIVER):
        if not os.path.exists(path):
            print(f"{path} is not installed")
            sys.exit(SKIPPED)
    if webdriver is None:
        print("python3-selenium is not installed")
        sys.exit(SKIPPED)


class Browser:
    """Chromium with a fresh profile, for as long as the block lasts."""

    def __enter__(self):
        self.profile = tempfile.mkdtemp()
        options = Options()
        options.binary_location = CHROMIUM
        for switch in SWITCHES + [f"--user-data-dir={self.profile}"]:
            options.add_argument(switch)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(service=Service(CHROMEDRIVER), options=options)
        self.driver.set_script_timeout(120)
        return self

    def __exit__(self, *_):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)

    def open(self, path, fragment=""):
        """Opens a page anew, and waits until it is ready. What earlier ones did is forgotten."""
        self.driver.get("about:blank")
        self.driver.get_log("browser")
        self.driver.get_log("performance")
        self.driver.get(f"file://{path}{fragment}")
        self.wait_for("document.body.dataset.ready", path)

    def script(self, text, *arguments):
        return self.driver.execute_script(text, *arguments)

    def wait_for(self, condition, what):
        """Until a condition holds, an expression of the page; ten seconds at most."""
        held = self.driver.execute_async_script(
            "const done = arguments[arguments.length - 1]; const end = performance.now() + 10000;"
            f"const look = () => {{ if ({condition}) done(true);"
            " else if (performance.now() > end) done(false); else setTimeout(look, 5); }; look();")
        assert held, f"{what}: never happened"

    def resize(self, width, height=800):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})

    def prefer(self, scheme):
        """The system's colours: "dark" or "light". They change at once."""
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": [
            {"name": "prefers-color-scheme", "value": scheme},
            {"name": "prefers-reduced-motion", "value": "reduce"}]})

    def messages(self):
        """What the page said to the console since it was opened, faults included."""
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        """The addresses that were asked for since the page was opened, its own left out."""
        own = self.driver.current_url.split("#")[0]
        events = [json.loads(entry["message"])["message"]
                  for entry in self.driver.get_log("performance")]
        asked = [event["params"]["request"]["url"] for event in events
                 if event["method"] == "Network.requestWillBeSent"]
        return [url for url in asked
                if url not in (own, "about:blank") and not url.startswith("data:")]
