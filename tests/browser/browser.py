"""A page of the program in a real browser that has no network."""

import json
import os
import pathlib
import subprocess
import tempfile
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.service import Service

PROGRAM = pathlib.Path(os.environ["QUORIN_PROGRAM"]).resolve()
BROWSER = pathlib.Path("/usr/bin/chromium")
DRIVER = pathlib.Path("/usr/bin/chromedriver")
GUARD = 120  # seconds after which a step counts as hung
INSPECTION = pathlib.Path(__file__).with_name("inspection.js").read_text()

PHONE = (360, 640)
DESK = (1280, 800)


def started(profile):
    """A browser with a profile of its own, which may run as root and finds no host."""
    for file in (BROWSER, DRIVER):
        if not file.exists():
            raise RuntimeError(f"{file} is missing; `./dev pages` installs what cmake/packages/browser.txt names")
    options = webdriver.ChromeOptions()
    options.binary_location = str(BROWSER)
    for argument in ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     "--disable-background-networking", "--no-first-run", "--hide-scrollbars",
                     "--host-resolver-rules=MAP * ~NOTFOUND", f"--user-data-dir={profile}"]:
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    driver = webdriver.Chrome(service=Service(str(DRIVER)), options=options)
    driver.set_page_load_timeout(GUARD)
    driver.set_script_timeout(GUARD)
    return driver


class PageTest(unittest.TestCase):
    """One browser for all tests of a class; each test begins with its defaults and a folder of its own."""

    @classmethod
    def setUpClass(cls):
        profile = tempfile.TemporaryDirectory(prefix="quorin-browser-")
        cls.addClassCleanup(profile.cleanup)
        cls.driver = started(profile.name)
        cls.addClassCleanup(cls.driver.quit)

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quorin-page-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.driver.get("about:blank")
        self.scripts(True)
        self.policy(True)
        self.emulate()
        self.size(*DESK)

    # --- how the page is shown

    def command(self, name, **parameters):
        """A command of the DevTools protocol."""
        return self.driver.execute_cdp_cmd(name, parameters)

    def emulate(self, media="", **features):
        """What the style asks for: the medium, and features such as `prefers_color_scheme`."""
        named = [{"name": name.replace("_", "-"), "value": value} for name, value in features.items()]
        self.command("Emulation.setEmulatedMedia", media=media, features=named)

    def scripts(self, run):
        self.command("Emulation.setScriptExecutionDisabled", value=not run)

    def policy(self, holds):
        self.command("Page.setBypassCSP", enabled=not holds)

    def size(self, width, height):
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                     mobile=width == PHONE[0])

    # --- what it shows

    def report(self, *documents, names=None):
        """Runs the program on the documents: texts, bytes or values."""
        names = names or [f"{i}.json" for i in range(len(documents))]
        for name, document in zip(names, documents):
            if not isinstance(document, (str, bytes)):
                document = json.dumps(document, indent=2, ensure_ascii=False)
            (self.folder / name).write_bytes(document if isinstance(document, bytes) else document.encode())
        own = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LC_ALL": "C.UTF-8"}
        return subprocess.run([PROGRAM, "report", *names, "-o", "page.html"], cwd=self.folder, env=own, text=True,
                              stdin=subprocess.DEVNULL, capture_output=True, timeout=GUARD)

    def write(self, *documents, **options):
        """The file of the page on them."""
        run = self.report(*documents, **options)
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, "", ""))
        return self.folder / "page.html"

    def open(self, *documents, **options):
        """Opens the page on the documents, and forgets what was logged before."""
        file = self.write(*documents, **options)
        self.driver.get("about:blank")
        self.logged("browser"), self.logged("performance")
        self.address = file.as_uri()
        self.driver.get(self.address)

    def js(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def shown(self, selector):
        """The elements that are not hidden, not even by what is folded around them."""
        return self.js("return [...document.querySelectorAll(arguments[0])].filter(one => one.checkVisibility())", selector)

    def logged(self, kind):
        return self.driver.get_log(kind)

    def requests(self):
        """The addresses that the browser asked for since the page was opened, of whatever kind."""
        return [event["request"]["url"] for event in self.events("Network.requestWillBeSent")]

    def events(self, method):
        """What the browser told of by that name since it was asked last; all else is forgotten."""
        messages = [json.loads(entry["message"])["message"] for entry in self.logged("performance")]
        return [message["params"] for message in messages if message["method"] == method]

    def inspect(self, script):
        """Runs it with what inspection.js offers."""
        return self.js(INSPECTION + script)
