#!/usr/bin/env python3
"""Serves the call page and says what the pages see.

The session writes orders to the standard input and reads an answer, a line for each browser named,
from the standard output, whose first line is the port:

    await BROWSER                          opened NAME TRIES | refused WHY | silent (so far)
    reload BROWSER                         asked, whereupon the page opens the camera again
    measure SECONDS KIND WIDTHxHEIGHT PHASE BROWSER...
                                           right TEXT | slow TEXT | wrong TEXT
    events BROWSER                         what the page told since the last time

KIND is what should be seen (expected.py). "slow" means that pictures are missing and that the machine
was too busy to tell whose fault it is. The last picture of each measurement is kept in the folder that
is the one argument.
"""

import json
import os
import queue
import struct
import sys
import threading
import zlib
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from statistics import median
from urllib.parse import parse_qs, urlsplit

import expected

PATIENCE_SECONDS = 60  # for a page's answer, on a busy machine
POLL_SECONDS = 3
LEAST_RATE = 28        # pictures a second

# So many of them are new ones. A phone's clock and the camera's are not the same, so that some are
# shown twice, and the simulated phone's encoder shares the machine with two browsers.
LEAST_NEW_RATE = 20

# What tells that the machine is too busy: repaints a second, of which an undisturbed page has 59 or
# 60, and processes that want to run, a processor.
LEAST_REPAINTS = 57
MOST_LOAD = 1.5

HERE = Path(__file__).parent
FILES = {"/": ("page.html", "text/html"), "/page.js": ("page.js", "text/javascript")}


class Browser:
    """What goes to a browser's page and what comes from it."""

    def __init__(self):
        self.page = None
        self.orders = queue.Queue()
        self.opened = queue.Queue()
        self.measured = queue.Queue()
        self.events = queue.Queue()

    def greet(self, page, opened):
        """A page says how it opened the camera. From now on orders are for it."""
        self.page, self.orders = page, queue.Queue()
        self.opened.put(opened)

    def order_for(self, page):
        """The next order; None when there is none yet, or when the page was replaced by another."""
        try:
            return self.orders.get(timeout=POLL_SECONDS) if page == self.page else None
        except queue.Empty:
            return None


browsers = {"chromium": Browser(), "firefox": Browser()}


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def answer(self, status, body=b"", kind="text/plain"):
        self.send_response(status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.send_header("Cache-Control", "no-store")
        self.end_headers()
        self.wfile.write(body)

    def sender(self, address):
        query = parse_qs(address.query)
        return browsers.get(query.get("browser", [""])[0]), query.get("page", [""])[0]

    def do_GET(self):
        address = urlsplit(self.path)
        if address.path in FILES:
            name, kind = FILES[address.path]
            self.answer(200, (HERE / name).read_bytes(), kind)
            return
        browser, page = self.sender(address)
        if address.path != "/order" or browser is None:
            self.answer(404)
            return
        order = browser.order_for(page)
        self.answer(204) if order is None else self.answer(200, json.dumps(order).encode())

    def do_POST(self):
        address = urlsplit(self.path)
        body = self.rfile.read(int(self.headers["Content-Length"]))
        browser, page = self.sender(address)
        if browser is None or address.path not in ("/opened", "/measured", "/event"):
            self.answer(404)
            return
        if address.path == "/opened":
            browser.greet(page, body)
        else:
            {"/measured": browser.measured, "/event": browser.events}[address.path].put(body)
        self.answer(204)

    def log_message(self, *_):
        pass


def drain(source):
    items = []
    while not source.empty():
        items.append(source.get())
    return items


def await_opened(name):
    try:
        opened = json.loads(browsers[name].opened.get(timeout=POLL_SECONDS))
    except queue.Empty:
        return "silent"
    if "error" in opened:
        return f"refused {opened['error']}"
    return f"opened {opened['label']} {opened['tries']}"


def reload(name):
    drain(browsers[name].opened)
    browsers[name].orders.put({"reload": True})
    return "asked"


def tell_events(name):
    return "; ".join(event.decode() for event in drain(browsers[name].events)) or "nothing"


def measure(names, seconds, kind, size, phase):
    for name in names:
        drain(browsers[name].measured)
        browsers[name].orders.put({"seconds": seconds, "source": size})
    return [judge_measurement(name, kind, size, phase) for name in names]


def judge_measurement(name, kind, size, phase):
    try:
        body = browsers[name].measured.get(timeout=PATIENCE_SECONDS)
    except queue.Empty:
        return "wrong the page does not answer"
    figures, pixels = body.split(b"\n", 1)
    seen = json.loads(figures)
    (folder / f"{name}-{phase}.json").write_bytes(figures)
    if not seen["width"]:
        return "wrong there is no picture"
    picture = expected.Picture(seen["width"], seen["height"], pixels)
    save_png(folder / f"{name}-{phase}.png", picture)
    look, right = expected.judge(picture, kind, size)
    rates, steady, held_up = judge_rates(seen, kind)
    text = f"{rates}, {seen['width']} x {seen['height']}, {look}"
    verdict = "wrong" if not right or not (steady or held_up) else "right" if steady else "slow"
    return f"{verdict} {text}"


def judge_rates(seen, kind):
    """(the figures as text, whether they are good, whether the machine held the page up)"""
    seconds, times, shown = seen["seconds"], seen["times"], seen["shown"]
    gaps = sorted(after - before for before, after in zip(times, times[1:])) or [seconds * 1000]
    rate = (shown[-1] - shown[0] + 1) / seconds if shown else 0
    new, repaints = seen["changed"] / seconds, seen["repaints"] / seconds
    text = f"{rate:.1f} pictures a second"
    if kind == "phone":
        text += f" ({new:.1f} new)"
    text += (f", gaps {median(gaps):.1f} ms, 99 % {gaps[(len(gaps) - 1) * 99 // 100]:.1f} ms, "
             f"page at {repaints:.0f} Hz")
    steady = rate >= LEAST_RATE and (kind != "phone" or new >= LEAST_NEW_RATE)
    held_up = repaints < LEAST_REPAINTS or os.getloadavg()[0] > MOST_LOAD * os.cpu_count()
    return text, steady, held_up


def save_png(path, picture):
    def chunk(kind, data):
        return (struct.pack(">I", len(data)) + kind + data +
                struct.pack(">I", zlib.crc32(kind + data)))

    row = picture.width * 4
    rows = b"".join(b"\0" + picture.pixels[start:start + row]
                    for start in range(0, row * picture.height, row))
    header = struct.pack(">IIBBBBB", picture.width, picture.height, 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                     chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))


def obey(line):
    order, *words = line.split()
    if order == "await":
        return [await_opened(*words)]
    if order == "reload":
        return [reload(*words)]
    if order == "events":
        return [tell_events(*words)]
    seconds, kind, size, phase, *names = words
    return measure(names, float(seconds), kind, tuple(map(int, size.split("x"))), phase)


folder = Path(sys.argv[1])
server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
threading.Thread(target=server.serve_forever, daemon=True).start()
print(server.server_port, flush=True)
for line in sys.stdin:
    print("\n".join(obey(line)), flush=True)
