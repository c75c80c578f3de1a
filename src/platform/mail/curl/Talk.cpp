#include "platform/mail/curl/Talk.h"

#include <sys/socket.h>
#include <unistd.h>

#include <string_view>

namespace vintoral {

void Talk::Follow(CURL* easy) {
  curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, Overhear);
  curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
  curl_easy_setopt(easy, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(easy, CURLOPT_XFERINFOFUNCTION, StopWhenOver);
  curl_easy_setopt(easy, CURLOPT_XFERINFODATA, this);
  curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, Open);
  curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
  curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, Close);
  curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, this);
}

void Talk::StopListening() const {
  for (const int each : open_)
    shutdown(each, SHUT_RD);
}

// Nothing that is overheard goes anywhere: the password is in it.
int Talk::Overhear(CURL* /*easy*/, curl_infotype kind, char* data, std::size_t size, void* self) {
  auto& talk = *static_cast<Talk*>(self);
  const std::string_view line(data, size);
  if (kind == CURLINFO_HEADER_OUT) {
    talk.ofRecipient_ = line.starts_with("RCPT TO:");
    // The library would wait for the answer to the good-bye longer than for any other.
    if (line.starts_with("QUIT")) talk.StopListening();
  }
  if (kind != CURLINFO_HEADER_IN || !talk.ofRecipient_) return 0;
  // The last line of an answer has a blank behind its code.
  const bool last = size > 3 && line[3] != '-';
  if (last && (line[0] == '4' || line[0] == '5')) ++talk.refused_;
  return 0;
}

int Talk::StopWhenOver(void* self, curl_off_t /*all*/, curl_off_t /*now*/, curl_off_t /*up*/,
                       curl_off_t /*upNow*/) {
  return static_cast<const Talk*>(self)->over_ ? 1 : 0;
}

curl_socket_t Talk::Open(void* self, curlsocktype /*purpose*/, curl_sockaddr* address) {
  const int made = socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
  if (made >= 0) static_cast<Talk*>(self)->open_.insert(made);
  return made;
}

int Talk::Close(void* self, curl_socket_t closed) {
  static_cast<Talk*>(self)->open_.erase(closed);
  return close(closed);
}

}  // namespace vintoral
