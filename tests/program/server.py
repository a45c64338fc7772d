"""An HTTP server on a free port of 127.0.0.1 whose answers a test chooses by path."""

import http.server
import json
import socket
import threading


class Server:
    """`answers` maps a path to (status, headers, body); "/silent" never answers while the server runs. With a
    `context` it speaks TLS."""

    def __init__(self, answers, context=None):
        self.answers = answers
        self.requests = []
        self.ended = threading.Event()
        owner = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                path = self.path.split("?")[0]
                owner.requests.append((self.path, dict(self.headers)))
                if path == "/silent":
                    owner.ended.wait()
                    return
                status, headers, body = owner.answers[path]
                self.send_response(status)
                for name, value in headers.items():
                    self.send_header(name, value)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

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
