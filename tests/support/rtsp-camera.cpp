// rtsp-camera PORT FORMAT [USER PASSWORD]: a camera on loopback that sends colour bars of 640 x 480, 15 a
// second. FORMAT is "jpeg" or "h264"; with a user, nobody else is let in. Its address is
// rtsp://127.0.0.1:PORT/film. It says "ready", and ends by itself after five minutes.
#include <gst/rtsp-server/rtsp-server.h>

#include <cstdio>
#include <string>

namespace {

constexpr const char* kFilm =
    "( videotestsrc is-live=true pattern=smpte75 ! "
    "video/x-raw,format=I420,width=640,height=480,framerate=15/1 ! ";
constexpr const char* kJpeg = "jpegenc ! rtpjpegpay name=pay0 )";
constexpr const char* kH264 =
    "openh264enc gop-size=15 ! h264parse ! rtph264pay config-interval=1 name=pay0 )";

void LetInOnly(GstRTSPServer* server, GstRTSPMediaFactory* film, const char* user, const char* password) {
  GstRTSPAuth* const auth = gst_rtsp_auth_new();
  gst_rtsp_auth_set_supported_methods(auth, GST_RTSP_AUTH_DIGEST);
  GstRTSPToken* const token =
      gst_rtsp_token_new(GST_RTSP_TOKEN_MEDIA_FACTORY_ROLE, G_TYPE_STRING, "viewer", nullptr);
  gst_rtsp_auth_add_digest(auth, user, password, token);
  gst_rtsp_token_unref(token);
  gst_rtsp_server_set_auth(server, auth);
  g_object_unref(auth);
  gst_rtsp_media_factory_add_role(film, "viewer", GST_RTSP_PERM_MEDIA_FACTORY_ACCESS, G_TYPE_BOOLEAN, TRUE,
                                  GST_RTSP_PERM_MEDIA_FACTORY_CONSTRUCT, G_TYPE_BOOLEAN, TRUE, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 1;
  gst_init(nullptr, nullptr);
  GstRTSPServer* const server = gst_rtsp_server_new();
  gst_rtsp_server_set_address(server, "127.0.0.1");
  gst_rtsp_server_set_service(server, argv[1]);
  GstRTSPMediaFactory* const film = gst_rtsp_media_factory_new();
  const std::string launch = std::string(kFilm) + (std::string(argv[2]) == "h264" ? kH264 : kJpeg);
  gst_rtsp_media_factory_set_launch(film, launch.c_str());
  if (argc > 4) LetInOnly(server, film, argv[3], argv[4]);
  GstRTSPMountPoints* const mounts = gst_rtsp_server_get_mount_points(server);
  gst_rtsp_mount_points_add_factory(mounts, "/film", film);
  g_object_unref(mounts);
  if (gst_rtsp_server_attach(server, nullptr) == 0) return 1;
  std::puts("ready");
  std::fflush(stdout);
  GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
  constexpr unsigned kSeconds = 300;
  const auto quit = [](gpointer data) -> gboolean {
    g_main_loop_quit(static_cast<GMainLoop*>(data));
    return FALSE;
  };
  g_timeout_add_seconds(kSeconds, quit, loop);
  g_main_loop_run(loop);
}
