#!/usr/bin/env python3
"""A server that behaves as the path of each request says; writes its port on standard output."""
import socket
import struct
import sys
import threading
import time

PATIENCE = 30  # seconds that a connection is held open for nothing


def head(fields="", status="200 OK"):
    return f"HTTP/1.1 {status}\r\n{fields}\r\n".encode()


def pattern(count):
    """Bytes that no text file has, each place telling itself from its neighbours."""
    return bytes((i * 7 + i // 251) % 256 for i in range(count))


def read_request(peer):
    data = b""
    while b"\r\n\r\n" not in data:
        part = peer.recv(4096)
        if not part:
            return data, b""
        data += part
    text, body = data.split(b"\r\n\r\n", 1)
    length = 0
    for line in text.split(b"\r\n"):
        if line.lower().startswith(b"content-length: "):
            length = int(line.split(b": ")[1])
    while len(body) < length:
        part = peer.recv(65536)
        if not part:
            break
        body += part
    return text, body


def slow(peer, request, body):
    for byte in head("Content-Length: 11\r\nX-Pace: slow\r\n") + b"byte by one":
        peer.sendall(bytes([byte]))
        time.sleep(0.002)


def reset(peer, request, body):
    peer.sendall(head("Content-Length: 1000\r\n") + b"part")
    time.sleep(0.2)
    peer.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))


def held_open(answer):
    def send(peer, request, body):
        peer.sendall(answer)
        time.sleep(PATIENCE)
    return send


def endless(first, part):
    def send(peer, request, body):
        peer.sendall(first)
        while True:
            peer.sendall(part)
    return send


def closed_after(answer):
    return lambda peer, request, body: peer.sendall(answer)


MODES = {
    "/plain": closed_after(head("Content-Type: text/plain\r\nContent-Length: 6\r\n") + b"hello\n"),
    "/slow": slow,
    "/cut-header": closed_after(b"HTTP/1.1 200 OK\r\nContent-Len"),
    "/cut-body": closed_after(head("Content-Length: 1000\r\n") + b"part"),
    "/reset": reset,
    "/too-much": held_open(head("content-length: 10\r\n") + b"0123456789" + b"x" * 5000),
    "/keep-open": held_open(head("Content-Length: 4\r\n") + b"done"),
    "/empty": held_open(head("Content-Length: 0\r\n")),
    "/no-length": closed_after(head() + b"until the end"),
    "/interim": closed_after(head(status="100 Continue") + head("Content-Length: 5\r\n") + b"final"),
    "/missing": closed_after(head("Content-Length: 4\r\n", "404 Not Found") + b"none"),
    "/big": closed_after(head("Content-Length: 300000\r\n") + pattern(300000)),
    "/endless-header": endless(b"HTTP/1.1 200 OK\r\n", b"X-More: and more\r\n"),
    "/endless-body": endless(head(), b"z" * 65536),
    "/never": held_open(b""),
    "/version": closed_after(head("Content-Length: 9\r\n") + b"8.01\n801\n"),
    "/old-net": closed_after(head() + b"<html>no version here</html>"),
    "/cut-version": closed_after(head("Content-Length: 9\r\n") + b"8.01\n80"),
    "/echo": lambda peer, request, body: peer.sendall(head() + request + b"\r\n\r\n" + body),
}


def serve(peer):
    try:
        request, body = read_request(peer)
        path = request.split(b" ")[1].decode() if request.count(b" ") > 1 else ""
        MODES.get(path, MODES["/missing"])(peer, request, body)
    except OSError:
        pass
    finally:
        peer.close()


def main():
    listener = socket.socket()
    listener.bind(("127.0.0.1", 0))
    listener.listen(16)
    print(listener.getsockname()[1], flush=True)
    while True:
        peer, _ = listener.accept()
        threading.Thread(target=serve, args=(peer,), daemon=True).start()


if __name__ == "__main__":
    sys.exit(main())
