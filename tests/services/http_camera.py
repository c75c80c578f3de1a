"""http_camera.py PORT KIND [USER PASSWORD]: a camera on loopback that sends pictures over HTTP.

KIND is "film" (one picture after the other, in parts), "single" (one picture for each question), "garbage" (parts of
no picture), "flood" (bytes without end, and no part among them), "bomb" (a picture that says it is 65,500 points
wide and high), "sizes" (parts whose pictures change their size) or "large" (pictures of 3840 by 2160 points). It says "ready", and ends after five minutes.
"""
import base64
import http.server
import os
import subprocess
import sys
import threading
import time

BOUNDARY = "frame"


def jpeg(width, height, colour):
    return subprocess.run(["convert", "-size", f"{width}x{height}", f"xc:{colour}", "jpeg:-"], check=True,
                          capture_output=True).stdout


def bomb():
    picture = bytearray(jpeg(64, 64, "red"))
    at = picture.index(b"\xff\xc0") + 5
    picture[at:at + 4] = bytes([0xFF, 0xDC, 0xFF, 0xDC])
    return bytes(picture)


RED = jpeg(640, 480, "red")
PICTURES = {"film": [RED], "single": [RED], "garbage": [os.urandom(20_000), b"\xff\xd8" + os.urandom(20_000)],
            "flood": [b"x" * 1_000_000], "bomb": [bomb()], "sizes": [RED, jpeg(320, 200, "blue"), jpeg(33, 17, "lime")]}
PICTURES["large"] = [jpeg(3840, 2160, "red")] if sys.argv[2] == "large" else []


class Camera(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    kind, user = "film", ""

    def log_message(self, *_):
        pass

    def do_GET(self):
        if self.user and self.headers.get("Authorization") != "Basic " + base64.b64encode(self.user.encode()).decode():
            self.send_response(401)
            self.send_header("WWW-Authenticate", 'Basic realm="camera"')
            self.send_header("Content-Length", "0")
            self.end_headers()
            return
        self.send_response(200)
        if self.kind == "single":
            self.send_header("Content-Type", "image/jpeg")
            self.send_header("Content-Length", str(len(RED)))
            self.end_headers()
            self.wfile.write(RED)
            return
        self.send_header("Content-Type", f"multipart/x-mixed-replace; boundary={BOUNDARY}")
        self.send_header("Connection", "close")
        self.end_headers()
        self.close_connection = True
        self.film()

    def film(self):
        try:
            for number in range(10_000_000):
                picture = PICTURES[self.kind][number // 15 % len(PICTURES[self.kind])]
                head = f"\r\n--{BOUNDARY}\r\nContent-Type: image/jpeg\r\nContent-Length: {len(picture)}\r\n\r\n"
                if self.kind == "flood":
                    head = "" if number else f"--{BOUNDARY}\r\nContent-Type: image/jpeg\r\n\r\n"
                else:
                    time.sleep(1 / 15)
                self.wfile.write(head.encode() + picture)
        except OSError:
            pass


def main():
    Camera.kind = sys.argv[2]
    Camera.user = ":".join(sys.argv[3:5])
    server = http.server.ThreadingHTTPServer(("127.0.0.1", int(sys.argv[1])), Camera)
    server.daemon_threads = True
    threading.Timer(300, os._exit, [0]).start()
    print("ready", flush=True)
    server.serve_forever()


main()
