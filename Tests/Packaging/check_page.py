#!/usr/bin/env python3
"""Checks the bundle's user guide as headless Chromium shows it.

    check_page.py PAGE

Every picture must be shown, every link must lead to a place in the page, nothing may be loaded from outside the page,
and the page must not be wider than the window. Prints each fault on a line and then exits with 1."""
import html
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

OPTIONS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-sync",
           "--disable-background-networking", "--disable-component-update", "--window-size=1024,768"]

# The policy keeps the browser from loading anything, and reports what the page tried to load.
PROBE = """
<meta http-equiv="Content-Security-Policy"
  content="default-src 'none'; img-src data:; style-src 'unsafe-inline'; script-src 'unsafe-inline'">
<script>
const requests = [];
document.addEventListener("securitypolicyviolation", event => requests.push(event.blockedURI));
addEventListener("load", () => setTimeout(() => {
  const name = picture => picture.alt || picture.src.slice(0, 60);
  const report = {
    requests: requests,
    pictures: document.images.length,
    missing: [...document.images].filter(picture => !picture.complete || picture.naturalWidth == 0).map(name),
    links: document.querySelectorAll("a[href]").length,
    broken: [...document.querySelectorAll("a[href]")].map(link => link.getAttribute("href"))
      .filter(href => !href.startsWith("#") || !document.getElementById(decodeURIComponent(href.slice(1)))),
    width: document.documentElement.scrollWidth - innerWidth
  };
  const place = document.createElement("pre");
  place.id = "page-report";
  place.textContent = JSON.stringify(report);
  document.body.append(place);
}, 500));
</script>
"""


def report_of(page, browser):
    with open(page, encoding="utf-8") as file:
        text = file.read()
    if "<head>" not in text:
        sys.exit(f"{page} has no <head>.")
    with tempfile.TemporaryDirectory() as folder:
        copy = os.path.join(folder, "page.html")
        with open(copy, "w", encoding="utf-8") as file:
            file.write(text.replace("<head>", "<head>" + PROBE, 1))
        run = subprocess.run([browser, *OPTIONS, f"--user-data-dir={folder}/profile", "--virtual-time-budget=5000",
                              "--dump-dom", f"file://{copy}"],
                             env={**os.environ, "HOME": folder, "XDG_CACHE_HOME": folder, "XDG_CONFIG_HOME": folder},
                             capture_output=True, encoding="utf-8", timeout=120, check=False)
    found = re.search(r'<pre id="page-report">(.*?)</pre>', run.stdout)
    if not found:
        sys.exit(f"{browser} ended with {run.returncode} and no report:\n{run.stderr[-2000:]}")
    return json.loads(html.unescape(found.group(1)))


def main():
    [page] = sys.argv[1:]
    browser = shutil.which("chromium")
    if not browser:
        sys.exit("Chromium, which shows the page, is not installed; tools/setup brings it.")
    report = report_of(page, browser)
    faults = [f"picture not shown: {name}" for name in report["missing"]]
    faults += [f"link leads nowhere: {href}" for href in report["broken"]]
    faults += [f"loaded from outside the page: {address}" for address in report["requests"]]
    faults += [f"no {what} in the page" for what in ("pictures", "links") if not report[what]]
    if report["width"] > 0:
        faults.append(f"the page is {report['width']} pixels wider than the window")
    return "\n".join(faults) or None


if __name__ == "__main__":
    sys.exit(main())
