// The desktop's mail: what its threads may and may not hold up, and when the machine counts as connected.
// What is sent is the tests' own business here; tests/services has real relays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/desktop/DesktopMail.h"
#include "platform/desktop/Network.h"

namespace vintoral::test {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Mails : public testing::Test {
 protected:
  Mails() { Make({.result = milliseconds(20'000), .end = milliseconds(20'000), .brokenOff = {}}); }
  ~Mails() override {
    Let([this] { hangs_ = holds_ = false; });
    mail_.reset();
  }

  void Make(const DesktopMail::Patience& patience) {
    const auto find = [](std::string_view) { return std::string(); };
    mail_ = std::make_unique<DesktopMail>(
        find, [this](const MailJob& job, const std::atomic<bool>& over) { return Carry(job, over); },
        patience);
  }
  template <class Change>
  void Let(Change change) {
    const std::lock_guard lock(mutex_);
    change();
    news_.notify_all();
  }
  std::unique_ptr<Sending> Send(const String& subject = "asunto"_w) {
    MailMessage message;
    message.subject = subject;
    return mail_->Send(message);
  }
  static bool Await(Sending& sending) {
    std::optional<bool> result;
    while (!(result = sending.Result()))
      std::this_thread::sleep_for(milliseconds(1));
    return *result;
  }
  template <class Work>
  static double Milliseconds(Work work) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count();
  }

  std::unique_ptr<DesktopMail> mail_;
  std::string problem_;
  bool hangs_ = false;  ///< until the program is over
  bool holds_ = false;  ///< whatever happens
  std::vector<std::string> carried_;

 private:
  std::string Carry(const MailJob& job, const std::atomic<bool>& over) {
    std::unique_lock lock(mutex_);
    while ((hangs_ && !over) || holds_)
      news_.wait_for(lock, milliseconds(5));
    carried_.push_back(job.headers[3]);
    return over && hangs_ ? "broken off" : problem_;
  }
  std::mutex mutex_;
  std::condition_variable news_;
};

TEST_F(Mails, TheResultComesLater) {
  hangs_ = true;
  std::unique_ptr<Sending> sending;
  EXPECT_LT(Milliseconds([&] { sending = Send(); }), 100);
  EXPECT_EQ(sending->Result(), std::nullopt);
  Let([this] { hangs_ = false; });
  EXPECT_TRUE(Await(*sending));
  EXPECT_EQ(sending->Result(), true);
}

TEST_F(Mails, AProblemIsTold) {
  problem_ = "no\nsuch relay";
  testing::internal::CaptureStderr();
  EXPECT_FALSE(Await(*Send()));
  mail_.reset();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "mail: an alert is lost: no such relay\n");
}

TEST_F(Mails, OneThatHangsHoldsUpNoOther) {
  holds_ = true;
  const auto first = Send("uno"_w);
  const auto second = Send("dos"_w);
  EXPECT_EQ(second->Result(), std::nullopt);
  Let([this] { holds_ = false; });
  EXPECT_TRUE(Await(*first));
  EXPECT_TRUE(Await(*second));
  EXPECT_TRUE(Await(*Send("tres"_w)));
  EXPECT_THAT(carried_, testing::UnorderedElementsAre("Subject: uno", "Subject: dos", "Subject: tres"));
}

TEST_F(Mails, WithoutAResultInTimeItIsLost) {
  Make({.result = milliseconds(50), .end = milliseconds(20'000), .brokenOff = {}});
  holds_ = true;
  const auto sending = Send();
  EXPECT_EQ(sending->Result(), std::nullopt);
  EXPECT_FALSE(Await(*sending));
}

TEST_F(Mails, TheEndWaitsForOneUnderWay) {
  hangs_ = true;
  static_cast<void>(Send());  // whoever waited for it has gone
  std::thread later([this] {
    std::this_thread::sleep_for(milliseconds(100));
    Let([this] { hangs_ = false; });
  });
  const double waited = Milliseconds([this] { mail_.reset(); });
  later.join();
  EXPECT_GT(waited, 90);
  EXPECT_LT(waited, 5'000);
  EXPECT_THAT(carried_, ElementsAre("Subject: asunto"));
}

TEST_F(Mails, TheEndBreaksOffOneThatTakesLonger) {
  Make({.result = milliseconds(20'000), .end = milliseconds(50), .brokenOff = milliseconds(20'000)});
  hangs_ = true;
  static_cast<void>(Send());
  testing::internal::CaptureStderr();
  EXPECT_LT(Milliseconds([this] { mail_.reset(); }), 5'000);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "mail: an alert is lost: broken off\n");
}

TEST_F(Mails, TheEndLeavesOneThatCannotBeBrokenOff) {
  Make({.result = milliseconds(20'000), .end = milliseconds(20), .brokenOff = milliseconds(20)});
  holds_ = true;
  const auto sending = Send();
  testing::internal::CaptureStderr();
  EXPECT_LT(Milliseconds([this] { mail_.reset(); }), 5'000);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "mail: an alert is lost: the program ended\n");
  Let([this] { holds_ = false; });
  EXPECT_TRUE(Await(*sending));
}

TEST_F(Mails, TheEndWaitsForNothingElse) {
  EXPECT_TRUE(Await(*Send()));
  EXPECT_LT(Milliseconds([this] { mail_.reset(); }), 1'000);
}

TEST_F(Mails, ARelayOnThisMachineIsAlwaysReached) {
  EXPECT_TRUE(mail_->Connected("127.0.0.1"));
  EXPECT_EQ(mail_->Connected("relay.example"), NetworkIsUp());
}

TEST(Network, KnowsTheNamesOfThisMachine) {
  for (const char* const host : {"localhost", "LocalHost", "127.0.0.1", "127.9.8.7", "::1", "[::1]"})
    EXPECT_TRUE(IsThisMachine(host)) << host;
  for (const char* const host :
       {"", "relay", "128.0.0.1", "127.relay.example", "localhost.example", "::2", "[::1", "12"})
    EXPECT_FALSE(IsThisMachine(host)) << host;
}

constexpr const char* kRoutes =
    "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n"
    "eth0\t00000000\t0101A8C0\t0003\t0\t0\t100\t00000000\t0\t0\t0\n"
    "wlan1\t0001A8C0\t00000000\t0001\t0\t0\t100\t00FFFFFF\t0\t0\t0\n";
constexpr const char* kRoutes6 =
    "fe800000000000000000000000000000 40 00000000000000000000000000000000 00 "
    "00000000000000000000000000000000 00000100 00000001 00000000 00000001     usb0\n"
    "ff000000000000000000000000000000 08 00000000000000000000000000000000 00 "
    "00000000000000000000000000000000 00000100 00000001 00000000 00000001     usb0\n"
    "20010db8000000000000000000000000 40 00000000000000000000000000000000 00 "
    "00000000000000000000000000000000 00000100 00000001 00000000 00000001     eth6\n";

TEST(Network, AnInterfaceHasARouteThatLeadsBeyondItsCable) {
  EXPECT_TRUE(HasRoute("eth0", kRoutes, kRoutes6));
  EXPECT_TRUE(HasRoute("wlan1", kRoutes, kRoutes6));
  EXPECT_TRUE(HasRoute("eth6", kRoutes, kRoutes6));
  EXPECT_FALSE(HasRoute("usb0", kRoutes, kRoutes6));
  EXPECT_FALSE(HasRoute("eth", kRoutes, kRoutes6));
  EXPECT_FALSE(HasRoute("eth0", "", ""));
}

}  // namespace
}  // namespace vintoral::test
