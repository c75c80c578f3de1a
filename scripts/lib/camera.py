#!/usr/bin/env python3
"""camera.py FOLDER: a camera on the network that sees FOLDER/frame.jpg, ten times a second.

It speaks MJPEG over HTTP on loopback; FOLDER/address tells where. It runs until it is killed.
"""
import http.server
import pathlib
import sys
import time

FOLDER = pathlib.Path(sys.argv[1])
BOUNDARY = b"frame"


class Camera(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        self.send_response(200)
        self.send_header("Content-Type", "multipart/x-mixed-replace; boundary=" + BOUNDARY.decode())
        self.end_headers()
        try:
            while True:
                frame = (FOLDER / "frame.jpg").read_bytes()
                self.wfile.write(b"--%s\r\nContent-Type: image/jpeg\r\nContent-Length: %d\r\n\r\n%s\r\n"
                                 % (BOUNDARY, len(frame), frame))
                time.sleep(0.1)
        except OSError:
            pass  # the station looks elsewhere

    def log_message(self, *_):
        pass


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Camera)
server.daemon_threads = True
(FOLDER / "address.new").write_text(f"http://127.0.0.1:{server.server_port}/")
(FOLDER / "address.new").rename(FOLDER / "address")
server.serve_forever()
