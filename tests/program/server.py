"""An HTTP server on a free port of 127.0.0.1 whose answers a test chooses by path."""

import http.server
import json
import socket
import threading
from typing import NamedTuple

METHODS = ["CONNECT", "DELETE", "HEAD", "OPTIONS", "PATCH", "POST", "PUT", "TRACE", "GET"]


class Message(NamedTuple):
    """A request as it came in: the lines of its head without their ends, and what followed them."""

    head: list
    body: bytes

    @property
    def method(self):
        return self.head[0].split(b" ")[0].decode()

    @property
    def target(self):
        return self.head[0].split(b" ")[1].decode()

    @property
    def headers(self):
        """Pairs of name and value in their order."""
        pairs = (line.decode().partition(":") for line in self.head[1:])
        return [(name, value.removeprefix(" ")) for name, _, value in pairs]

    @property
    def names(self):
        return [name for name, _ in self.headers]


class Lines:
    """A stream that keeps the lines read from it."""

    def __init__(self, stream):
        self.stream = stream
        self.kept = []

    def readline(self, *limit):
        line = self.stream.readline(*limit)
        self.kept.append(line.rstrip(b"\r\n"))
        return line

    def __getattr__(self, name):
        return getattr(self.stream, name)


class Server:
    """`answers` maps a path to (status, headers, body), headers to a text or a list of texts; "/silent" never answers
    while the server runs. With a `context` it speaks TLS. `messages` are the requests, of whatever method, as they came
    in."""

    def __init__(self, answers, context=None):
        self.answers = answers
        self.requests = []
        self.messages = []
        self.ended = threading.Event()
        owner = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def setup(self):
                super().setup()
                self.rfile = Lines(self.rfile)

            def date_time_string(self, timestamp=None):
                return "Sun, 06 Nov 1994 08:49:37 GMT"  # the same in every answer, so that answers compare

            def answer(self):
                body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
                owner.messages.append(Message([line for line in self.rfile.kept if line], body))
                path = self.path.split("?")[0]
                owner.requests.append((self.path, dict(self.headers)))
                if path == "/silent":
                    owner.ended.wait()
                    return
                status, headers, body = owner.answers[path]
                self.send_response(status)
                for name, values in headers.items():
                    for value in [values] if isinstance(values, str) else values:
                        self.send_header(name, value)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                if self.command != "HEAD":
                    self.wfile.write(body)

            def log_message(self, *_):
                pass

        for method in METHODS:
            setattr(Handler, f"do_{method}", Handler.answer)
        self.http = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.http.daemon_threads = True
        self.scheme = "https" if context else "http"
        if context:
            self.http.socket = context.wrap_socket(self.http.socket, server_side=True)
        self.thread = threading.Thread(target=self.http.serve_forever, args=(0.01,))

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.ended.set()
        self.http.shutdown()
        self.thread.join()
        self.http.server_close()

    def url(self, path, userinfo=""):
        return f"{self.scheme}://{userinfo}127.0.0.1:{self.http.server_address[1]}{path}"


def answer(document, status=200, **headers):
    body = document if isinstance(document, bytes) else json.dumps(document).encode()
    return status, headers, body


def closed_port():
    """A port of 127.0.0.1 at which nothing listens."""
    with socket.socket() as taken:
        taken.bind(("127.0.0.1", 0))
        return taken.getsockname()[1]
