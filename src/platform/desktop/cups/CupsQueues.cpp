// The queues of CUPS, over a connection of its own for each question: the library's shared one, which the
// toolkit prints by, waits without an end for a server that has stopped answering.
#include <cups/cups.h>

#include <chrono>
#include <cmath>

#include "platform/desktop/PrintQueues.h"

namespace vintoral {
namespace {

using SteadyClock = std::chrono::steady_clock;

/// For all that a question takes.
constexpr std::chrono::seconds kPatience{5};
/// So often whoever waits looks whether that is over.
constexpr double kLook = 0.2;
constexpr int kConnectMilliseconds = 2000;

struct Close {
  void operator()(http_t* connection) const { httpClose(connection); }
};
struct Delete {
  void operator()(ipp_t* message) const { ippDelete(message); }
};
using Message = std::unique_ptr<ipp_t, Delete>;

/// CUPS has hundredths of a millimetre.
constexpr double kPointsInHundredth = 72 / 2540.0;

double Points(int hundredths) {
  return hundredths * kPointsInHundredth;
}

/// Up, for CUPS makes whole points of them again, down.
int Hundredths(double points) {
  return static_cast<int>(std::ceil(points / kPointsInHundredth));
}

/// A connection that answers within its time or fails.
class Connection {
 public:
  explicit Connection(const std::atomic<bool>& over)
      : over_(over),
        connection_(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                 kConnectMilliseconds, nullptr)) {
    if (connection_ != nullptr) httpSetTimeout(connection_.get(), kLook, &Connection::GoOn, this);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  http_t* Get() const { return connection_.get(); }

 private:
  static int GoOn(http_t* /*connection*/, void* self) {
    const auto& connection = *static_cast<const Connection*>(self);
    return !connection.over_ && SteadyClock::now() < connection.end_ ? 1 : 0;
  }

  const std::atomic<bool>& over_;
  const SteadyClock::time_point end_ = SteadyClock::now() + kPatience;
  std::unique_ptr<http_t, Close> connection_;
};

QueueAnswer NotReached() {
  return {std::string("no CUPS: ") + cupsLastErrorString(), true};
}

/// What is wrong with an answer; nothing where it is good.
QueueAnswer Judge(const ipp_t* answer) {
  if (answer != nullptr && cupsLastError() < IPP_STATUS_REDIRECTION_OTHER_SITE) return {};
  return {std::string("CUPS: ") + cupsLastErrorString(), answer == nullptr};
}

/// Headed as all of them are.
Message Question(ipp_op_t operation) {
  Message message(ippNewRequest(operation));
  ippAddString(message.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
  return message;
}

Message QuestionTo(const std::string& queue, ipp_op_t operation) {
  char address[HTTP_MAX_URI];
  httpAssembleURIf(HTTP_URI_CODING_ALL, address, sizeof address, "ipp", nullptr, "localhost", ippPort(),
                   "/printers/%s", queue.c_str());
  Message message(ippNewRequest(operation));
  ippAddString(message.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, address);
  ippAddString(message.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
  return message;
}

template <std::size_t Count>
void Wanting(const Message& message, const char* const (&names)[Count]) {
  ippAddStrings(message.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(Count), nullptr, names);
}

/// An attribute of a collection, as numbers; `upper` is the same as `lower` unless it is a range.
struct Range {
  int lower = 0, upper = 0;
};

Range NumbersOf(ipp_t* collection, const char* name) {
  ipp_attribute_t* const attribute = ippFindAttribute(collection, name, IPP_TAG_ZERO);
  if (attribute == nullptr) return {};
  if (ippGetValueTag(attribute) != IPP_TAG_RANGE) {
    const int number = ippGetInteger(attribute, 0);
    return {number, number};
  }
  Range range;
  range.lower = ippGetRange(attribute, 0, &range.upper);
  return range;
}

void ReadStandard(ipp_t* media, QueuePaper& paper) {
  ipp_attribute_t* const size = ippFindAttribute(media, "media-size", IPP_TAG_BEGIN_COLLECTION);
  if (size == nullptr) return;
  ipp_t* const sides = ippGetCollection(size, 0);
  const auto points = [](ipp_t* of, const char* name) { return Points(NumbersOf(of, name).lower); };
  const PaperSize standard{points(sides, "x-dimension"), points(sides, "y-dimension")};
  if (standard.width <= 0 || standard.length <= 0) return;
  paper.standard = standard;
  paper.margins = {points(media, "media-left-margin"), points(media, "media-right-margin"),
                   points(media, "media-top-margin"), points(media, "media-bottom-margin")};
}

/// One of the sizes that a queue takes, or a range of them.
void ReadSize(ipp_t* sides, QueuePaper& paper) {
  const Range width = NumbersOf(sides, "x-dimension");
  const Range length = NumbersOf(sides, "y-dimension");
  if (length.lower == length.upper) {
    paper.sizes.push_back({Points(width.lower), Points(length.lower)});
    return;
  }
  const double wanted = paper.standard.width;
  if (wanted < Points(width.lower) || wanted > Points(width.upper)) return;
  paper.shortest = Points(length.lower);
  paper.longest = Points(length.upper);
}

class CupsQueues final : public PrintQueues {
 public:
  explicit CupsQueues(const std::atomic<bool>& over) : over_(over) {
    // Nobody is there who could be asked for a password.
    cupsSetPasswordCB2(
        [](const char*, http_t*, const char*, const char*, void*) -> const char* { return nullptr; },
        nullptr);
  }

  QueueAnswer List(QueueNames& names) override {
    const Connection connection(over_);
    if (connection.Get() == nullptr) return NotReached();
    Message question = Question(IPP_OP_CUPS_GET_PRINTERS);
    Wanting(question, {"printer-name"});
    const Message answer(cupsDoRequest(connection.Get(), question.release(), "/"));
    // A server without any queue says that it found none.
    if (answer != nullptr && cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) return {};
    if (QueueAnswer bad = Judge(answer.get()); !bad.Good()) return bad;
    for (ipp_attribute_t* name = ippFindAttribute(answer.get(), "printer-name", IPP_TAG_NAME);
         name != nullptr; name = ippFindNextAttribute(answer.get(), "printer-name", IPP_TAG_NAME))
      names.names.emplace_back(ippGetString(name, 0, nullptr));
    if (const char* const standard = cupsGetDefault2(connection.Get()); standard != nullptr)
      names.standard = standard;
    return {};
  }

  QueueAnswer PaperOf(const std::string& queue, QueuePaper& paper) override {
    const Connection connection(over_);
    if (connection.Get() == nullptr) return NotReached();
    Message question = QuestionTo(queue, IPP_OP_GET_PRINTER_ATTRIBUTES);
    Wanting(question, {"media-col-default", "media-size-supported"});
    const Message answer(cupsDoRequest(connection.Get(), question.release(), "/"));
    if (QueueAnswer bad = Judge(answer.get()); !bad.Good()) return bad;
    Read(answer.get(), paper);
    return {};
  }

  QueueAnswer Hand(const QueueJob& job) override {
    const Connection connection(over_);
    if (connection.Get() == nullptr) return NotReached();
    const Message question = JobOf(job);
    const std::string path = "/printers/" + job.queue;
    const std::size_t length = ippLength(question.get()) + job.pdf.size();
    const bool through =
        cupsSendRequest(connection.Get(), question.get(), path.c_str(), length) == HTTP_STATUS_CONTINUE &&
        cupsWriteRequestData(connection.Get(), job.pdf.data(), job.pdf.size()) == HTTP_STATUS_CONTINUE;
    const Message answer(through ? cupsGetResponse(connection.Get(), path.c_str()) : nullptr);
    QueueAnswer end = Judge(answer.get());
    end.again = false;  // it may have come as far as the spooler
    return end;
  }

 private:
  static void Read(ipp_t* answer, QueuePaper& paper) {
    const auto collections = [answer](const char* name, auto take) {
      ipp_attribute_t* const found = ippFindAttribute(answer, name, IPP_TAG_BEGIN_COLLECTION);
      for (int i = 0; found != nullptr && i < ippGetCount(found); ++i)
        take(ippGetCollection(found, i));
    };
    collections("media-col-default", [&](ipp_t* media) { ReadStandard(media, paper); });
    collections("media-size-supported", [&](ipp_t* sides) { ReadSize(sides, paper); });
  }

  static Message JobOf(const QueueJob& job) {
    Message message = QuestionTo(job.queue, IPP_OP_PRINT_JOB);
    ippAddString(message.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, "Vintoral");
    ippAddString(message.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr,
                 "application/pdf");
    // The pages are as large as the paper already.
    ippAddString(message.get(), IPP_TAG_JOB, IPP_TAG_KEYWORD, "print-scaling", nullptr, "none");
    if (job.own) AddPaper(message, job.paper);
    return message;
  }

  static void AddPaper(const Message& message, const PaperSize& paper) {
    const Message size(ippNew());
    ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "x-dimension", Hundredths(paper.width));
    ippAddInteger(size.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "y-dimension", Hundredths(paper.length));
    const Message media(ippNew());
    ippAddCollection(media.get(), IPP_TAG_ZERO, "media-size", size.get());
    ippAddCollection(message.get(), IPP_TAG_JOB, "media-col", media.get());
  }

  const std::atomic<bool>& over_;
};

}  // namespace

/// What PrintQueues.cpp looks for in this module.
extern "C" __attribute__((visibility("default"))) PrintQueues* MakeCupsQueues(const std::atomic<bool>& over) {
  return new CupsQueues(over);
}

}  // namespace vintoral
