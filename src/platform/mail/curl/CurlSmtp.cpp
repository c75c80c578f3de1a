// One mail by libcurl, which builds its parts and speaks with the relay.
#include <curl/curl.h>

#include <array>
#include <atomic>
#include <csignal>
#include <ctime>
#include <memory>

#include "platform/mail/MailJob.h"
#include "platform/mail/curl/Talk.h"

namespace vintoral {
namespace {

/// Until the relay has been found and reached; until each of its answers; and for all of it.
constexpr long kConnectSeconds = 10, kAnswerSeconds = 10, kAllSeconds = 30;

template <auto free>
struct Free {
  template <class T>
  void operator()(T* thing) const {
    free(thing);
  }
};
using Easy = std::unique_ptr<CURL, Free<curl_easy_cleanup>>;
using Mime = std::unique_ptr<curl_mime, Free<curl_mime_free>>;
using Url = std::unique_ptr<CURLU, Free<curl_url_cleanup>>;

class Lines {
 public:
  explicit Lines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines)
      first_.reset(curl_slist_append(first_.release(), line.c_str()));
  }
  curl_slist* Get() const { return first_.get(); }

 private:
  std::unique_ptr<curl_slist, Free<curl_slist_free_all>> first_;
};

/// A relay that closes in the middle of a secure line must not end the program.
class NoBrokenPipe {
 public:
  NoBrokenPipe() {
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  NoBrokenPipe(const NoBrokenPipe&) = delete;
  NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;
  ~NoBrokenPipe() {
    const std::timespec now{};
    sigtimedwait(&pipe_, nullptr, &now);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  sigset_t pipe_{}, before_{};
};

Url UrlOf(const MailJob& job) {
  Url url(curl_url());
  const bool numbers = job.host.find(':') != std::string::npos && !job.host.starts_with('[');
  const std::string host = numbers ? "[" + job.host + "]" : job.host;
  const char* const scheme = job.privacy == MailPrivacy::kTls ? "smtps" : "smtp";
  const bool good = curl_url_set(url.get(), CURLUPART_SCHEME, scheme, 0) == CURLUE_OK &&
                    curl_url_set(url.get(), CURLUPART_HOST, host.c_str(), 0) == CURLUE_OK &&
                    curl_url_set(url.get(), CURLUPART_PORT, std::to_string(job.port).c_str(), 0) == CURLUE_OK;
  return good ? std::move(url) : Url();
}

void SetPatience(CURL* easy) {
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);  // a name that is still looked up is not waited for
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  curl_easy_setopt(easy, CURLOPT_SERVER_RESPONSE_TIMEOUT, kAnswerSeconds);
  curl_easy_setopt(easy, CURLOPT_TIMEOUT, kAllSeconds);
}

/// Who speaks with whom, and whether somebody may listen.
void SetRelay(CURL* easy, const MailJob& job, CURLU* url) {
  curl_easy_setopt(easy, CURLOPT_CURLU, url);
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  curl_easy_setopt(easy, CURLOPT_PROXY, "");  // whatever the environment says
  if (job.privacy == MailPrivacy::kStartTls)
    curl_easy_setopt(easy, CURLOPT_USE_SSL, static_cast<long>(CURLUSESSL_ALL));
  if (!job.authorities.empty()) curl_easy_setopt(easy, CURLOPT_CAINFO, job.authorities.c_str());
  if (!job.logIn) return;
  curl_easy_setopt(easy, CURLOPT_USERNAME, job.user.c_str());
  curl_easy_setopt(easy, CURLOPT_PASSWORD, job.password.c_str());
}

/// The text, and behind it the attachment.
Mime PartsOf(CURL* easy, const MailJob& job) {
  Mime mime(curl_mime_init(easy));
  curl_mimepart* const text = curl_mime_addpart(mime.get());
  curl_mime_data(text, job.text.data(), job.text.size());
  curl_mime_type(text, "text/plain; charset=UTF-8");
  curl_mime_encoder(text, "quoted-printable");
  if (job.attachment.empty()) return mime;
  curl_mimepart* const file = curl_mime_addpart(mime.get());
  curl_mime_filedata(file, job.attachment.c_str());
  curl_mime_filename(file, job.attachmentName.c_str());
  curl_mime_encoder(file, "base64");
  return mime;
}

/// What came of it; empty when all went well.
std::string Judge(CURLcode code, const char* words, int refused, std::size_t recipients) {
  if (code != CURLE_OK) return *words != '\0' ? words : curl_easy_strerror(code);
  if (refused == 0) return {};
  return "the relay refused " + std::to_string(refused) + " of " + std::to_string(recipients) + " recipients";
}

std::string Perform(const MailJob& job, CURLU* url, const std::atomic<bool>& over) {
  const NoBrokenPipe guard;
  const Lines to(job.to), headers(job.headers);
  std::array<char, CURL_ERROR_SIZE> words{};
  Talk talk(over);
  const Easy easy(curl_easy_init());
  const Mime parts = PartsOf(easy.get(), job);
  SetPatience(easy.get());
  SetRelay(easy.get(), job, url);
  talk.Follow(easy.get());
  curl_easy_setopt(easy.get(), CURLOPT_ERRORBUFFER, words.data());
  curl_easy_setopt(easy.get(), CURLOPT_MAIL_FROM, job.from.c_str());
  curl_easy_setopt(easy.get(), CURLOPT_MAIL_RCPT, to.Get());
  curl_easy_setopt(easy.get(), CURLOPT_MAIL_RCPT_ALLLOWFAILS, 1L);
  curl_easy_setopt(easy.get(), CURLOPT_HTTPHEADER, headers.Get());
  curl_easy_setopt(easy.get(), CURLOPT_MIMEPOST, parts.get());
  const CURLcode code = curl_easy_perform(easy.get());
  talk.StopListening();
  return Judge(code, words.data(), talk.Refused(), job.to.size());
}

std::string Send(const MailJob& job, const std::atomic<bool>& over) {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  if (ready != CURLE_OK) return curl_easy_strerror(ready);
  if (job.to.empty()) return "it has no recipient";
  const Url url = UrlOf(job);
  return url ? Perform(job, url.get(), over) : "the relay's name is none";
}

}  // namespace

/// What Smtp.cpp looks for in this module.
extern "C" __attribute__((visibility("default"))) void SendByCurl(const MailJob& job,
                                                                  const std::atomic<bool>& over,
                                                                  std::string& problem) {
  problem = Send(job, over);
}

}  // namespace vintoral
