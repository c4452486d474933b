#include "platform/print_destination_posix.h"

#include <cups/cups.h>

#include <array>
#include <chrono>
#include <cstring>
#include <utility>

#include "platform/time_limit.h"

namespace qvl {
namespace {

constexpr std::chrono::milliseconds kSpoolerLimit{30'000};
constexpr double kMillisecondsPerSecond = 1000.0;

int TimeoutMs() {
  return static_cast<int>(TimeLimit("QVL_PRINT_TIMEOUT_MS", kSpoolerLimit).count());
}

// Nobody is there to be asked; the library would ask on the terminal.
const char* NoPassword(const char* /*prompt*/, http_t* /*http*/, const char* /*method*/,
                       const char* /*resource*/, void* /*user*/) {
  return nullptr;
}

// One silence is enough: the library would ask again, and wait as long again, several times.
int StopWaiting(http_t* http, void* /*user*/) {
  constexpr double kSecondsFromNowOn = 0.01;
  httpSetTimeout(http, kSecondsFromNowOn, StopWaiting, nullptr);
  return 0;
}

struct CloseConnection {
  void operator()(http_t* http) const { httpClose(http); }
};
struct FreeDestination {
  void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
struct FreeInformation {
  void operator()(cups_dinfo_t* information) const { cupsFreeDestInfo(information); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;
using Destination = std::unique_ptr<cups_dest_t, FreeDestination>;
using Information = std::unique_ptr<cups_dinfo_t, FreeInformation>;

// The options of a job: those that the user keeps for the queue, and this program's.
class JobOptions {
 public:
  explicit JobOptions(const cups_dest_t& destination) {
    for (int i = 0; i < destination.num_options; ++i) {
      Add(destination.options[i].name, destination.options[i].value);
    }
  }
  ~JobOptions() { cupsFreeOptions(count_, options_); }
  JobOptions(const JobOptions&) = delete;
  JobOptions& operator=(const JobOptions&) = delete;

  void Add(const char* name, const char* value) {
    count_ = cupsAddOption(name, value, count_, &options_);
  }
  int count() const { return count_; }
  cups_option_t* get() const { return options_; }

 private:
  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

// A queue with what can be asked about it.
struct Queue {
  Connection http;
  Destination destination;
  Information information;
};

// An option that the user keeps for the queue, without the tray or kind of paper that may follow
// behind a comma.
std::string KeptOption(const Queue& queue, const char* option) {
  const char* const kept =
      cupsGetOption(option, queue.destination->num_options, queue.destination->options);
  return kept == nullptr ? std::string() : std::string(kept, std::strcspn(kept, ","));
}

std::string StandardPaper(const Queue& queue) {
  ipp_attribute_t* const standard = cupsFindDestDefault(queue.http.get(), queue.destination.get(),
                                                        queue.information.get(), CUPS_MEDIA);
  const ipp_tag_t tag = ippGetValueTag(standard);
  if (tag != IPP_TAG_KEYWORD && tag != IPP_TAG_NAME) return {};
  const char* const name = ippGetString(standard, 0, nullptr);
  return name == nullptr ? std::string() : std::string(name);
}

// Papers have names of their own in the protocol, in older queues, and in printers' descriptions.
bool FindPaper(const Queue& queue, const std::string& name, cups_size_t& size) {
  if (name.empty()) return false;
  http_t* const http = queue.http.get();
  cups_dest_t* const destination = queue.destination.get();
  cups_dinfo_t* const information = queue.information.get();
  if (cupsGetDestMediaByName(http, destination, information, name.c_str(), 0, &size) == 0) {
    const pwg_media_t* const media = pwgMediaForPPD(name.c_str());
    if (media == nullptr || cupsGetDestMediaBySize(http, destination, information, media->width,
                                                   media->length, 0, &size) == 0) {
      return false;
    }
  }
  return size.width > size.left + size.right && size.length > size.top + size.bottom;
}

// Queues that pass everything on as it is tell no paper; theirs is the one that a Paper starts
// with.
Paper PaperOf(const Queue& queue) {
  cups_size_t size = {};
  if (!FindPaper(queue, KeptOption(queue, CUPS_MEDIA), size) &&
      !FindPaper(queue, KeptOption(queue, "PageSize"), size) &&
      !FindPaper(queue, StandardPaper(queue), size)) {
    return {};
  }
  return {.name = static_cast<const char*>(size.media),
          .width = size.width,
          .length = size.length,
          .left = size.left,
          .right = size.right,
          .top = size.top,
          .bottom = size.bottom};
}

class CupsDestination : public PrintDestination {
 public:
  explicit CupsDestination(Queue queue) : queue_(std::move(queue)), paper_(PaperOf(queue_)) {}

  const Paper& paper() const override { return paper_; }

  Status Send(const std::string& title, std::FILE* pdf) override {
    JobOptions options(*queue_.destination);
    if (!paper_.name.empty()) options.Add(CUPS_MEDIA, paper_.name.c_str());
    // The pages have the paper's size and keep off its margins already.
    options.Add("print-scaling", "none");
    int job = 0;
    if (cupsCreateDestJob(queue_.http.get(), queue_.destination.get(), queue_.information.get(),
                          &job, title.c_str(), options.count(),
                          options.get()) > IPP_STATUS_OK_EVENTS_COMPLETE) {
      return Failure();
    }
    if (SendDocument(job, title, options, pdf)) return Status::Ok();
    Status failure = Failure();
    cupsCancelDestJob(queue_.http.get(), queue_.destination.get(), job);
    return failure;
  }

 private:
  static Status Failure() {
    return Status::Failed(std::string("cannot print: ") + cupsLastErrorString());
  }

  bool SendDocument(int job, const std::string& title, const JobOptions& options, std::FILE* pdf) {
    if (cupsStartDestDocument(queue_.http.get(), queue_.destination.get(), queue_.information.get(),
                              job, title.c_str(), CUPS_FORMAT_PDF, options.count(), options.get(),
                              1) != HTTP_STATUS_CONTINUE) {
      return false;
    }
    std::array<char, 65536> buffer;
    std::rewind(pdf);
    for (;;) {
      const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pdf);
      if (size == 0) break;
      if (cupsWriteRequestData(queue_.http.get(), buffer.data(), size) != HTTP_STATUS_CONTINUE) {
        return false;
      }
    }
    return std::ferror(pdf) == 0 &&
           cupsFinishDestDocument(queue_.http.get(), queue_.destination.get(),
                                  queue_.information.get()) <= IPP_STATUS_OK_EVENTS_COMPLETE;
  }

  Queue queue_;
  Paper paper_;
};

}  // namespace

std::unique_ptr<PrintDestination> OpenDefaultPrintDestination() {
  cupsSetPasswordCB2(NoPassword, nullptr);
  const int timeout = TimeoutMs();
  Queue queue;
  queue.http.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                timeout, nullptr));
  if (queue.http == nullptr) return nullptr;
  httpSetTimeout(queue.http.get(), timeout / kMillisecondsPerSecond, StopWaiting, nullptr);
  queue.destination.reset(cupsGetNamedDest(queue.http.get(), nullptr, nullptr));
  if (queue.destination == nullptr) return nullptr;
  queue.information.reset(cupsCopyDestInfo(queue.http.get(), queue.destination.get()));
  if (queue.information == nullptr) return nullptr;
  return std::make_unique<CupsDestination>(std::move(queue));
}

}  // namespace qvl
