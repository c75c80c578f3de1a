// The talk with a relay: what of it matters beside its result, and how it is cut short.
#pragma once

#include <curl/curl.h>

#include <atomic>
#include <set>

namespace vintoral {

class Talk {
 public:
  /// Ends within about a second when `over` is set.
  explicit Talk(const std::atomic<bool>& over) : over_(over) {}
  Talk(const Talk&) = delete;
  Talk& operator=(const Talk&) = delete;

  /// Listens in on all that this handle says and hears. Outlives it.
  void Follow(CURL* easy);
  /// So many recipients were refused.
  int Refused() const { return refused_; }
  /// What the relay may still say is not waited for.
  void StopListening() const;

 private:
  static int Overhear(CURL* easy, curl_infotype kind, char* data, std::size_t size, void* self);
  static int StopWhenOver(void* self, curl_off_t all, curl_off_t now, curl_off_t up, curl_off_t upNow);
  static curl_socket_t Open(void* self, curlsocktype purpose, curl_sockaddr* address);
  static int Close(void* self, curl_socket_t closed);

  const std::atomic<bool>& over_;
  std::set<int> open_;        ///< a relay of two addresses may be called at both
  bool ofRecipient_ = false;  ///< the relay has been asked to take one
  int refused_ = 0;
};

}  // namespace vintoral
