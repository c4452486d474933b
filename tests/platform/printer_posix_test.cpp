#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "platform/printer.h"
#include "platform/text_pages_posix.h"

namespace qvl {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// Takes connections (the system does, for as many as wait) and never says a word.
class SilentSpooler {
 public:
  SilentSpooler() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(::bind(socket_, generic, size), 0);
    EXPECT_EQ(::listen(socket_, 8), 0);
    EXPECT_EQ(::getsockname(socket_, generic, &size), 0);
    name_ = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
  }
  ~SilentSpooler() { ::close(socket_); }
  SilentSpooler(const SilentSpooler&) = delete;
  SilentSpooler& operator=(const SilentSpooler&) = delete;

  const std::string& name() const { return name_; }

 private:
  int socket_;
  std::string name_;
};

// The library reads its environment once a thread, so each opening gets a thread of its own.
bool OpensPrinterOf(const std::string& spooler) {
  ::setenv("CUPS_SERVER", spooler.c_str(), 1);
  ::setenv("QVL_PRINT_TIMEOUT_MS", "2000", 1);
  bool opened = false;
  std::thread([&opened] { opened = OpenDefaultPrinter() != nullptr; }).join();
  ::unsetenv("CUPS_SERVER");
  ::unsetenv("QVL_PRINT_TIMEOUT_MS");
  return opened;
}

TEST(DefaultPrinter, IsNoneWithoutASpooler) {
  EXPECT_FALSE(OpensPrinterOf("/nonexistent/spooler/socket"));
  EXPECT_FALSE(OpensPrinterOf("127.0.0.1:1"));
}

TEST(DefaultPrinter, IsNoneWhenTheSpoolerKeepsSilent) {
  const SilentSpooler spooler;
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_FALSE(OpensPrinterOf(spooler.name()));
  // Once, however often it would be asked.
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(7));
}

TEST(TextPages, MeasureInSixHundredthsOfAnInch) {
  Paper paper;
  paper.width = 21590;
  paper.length = 27940;
  paper.left = paper.right = 635;
  paper.top = paper.bottom = 1270;
  const PrinterMetrics metrics = TextPages(paper).Metrics();
  EXPECT_EQ(metrics.horizontalResolution, 4800);
  EXPECT_EQ(metrics.verticalResolution, 6000);
  // Ten points are 83 units; no font's line is lower, and none twice as high.
  EXPECT_GE(metrics.fontHeight, 83);
  EXPECT_LT(metrics.fontHeight + metrics.externalLeading, 166);
  EXPECT_GE(metrics.averageCharacterWidth, 30);
  EXPECT_LE(metrics.averageCharacterWidth, 83);
}

TEST(TextPages, DrawAnyBytes) {
  const File file(std::tmpfile());
  TextPages pages{Paper()};
  ASSERT_TRUE(pages.Start("bytes", file.get()));
  std::string every;
  for (int byte = 0; byte < 256; ++byte) every += static_cast<char>(byte);
  pages.DrawLine(0, 0, every);
  pages.DrawLine(-100000, 100000, std::string(100000, 'W'));
  pages.DrawLine(0, 0, {});
  pages.EndPage();
  EXPECT_TRUE(pages.Finish());
  std::fflush(file.get());
  EXPECT_GT(std::ftell(file.get()), 0);
}

TEST(TextPages, TellWhenTheyCannotBeWritten) {
  const File full(std::fopen("/dev/full", "wb"));
  ASSERT_NE(full, nullptr);
  std::setbuf(full.get(), nullptr);
  TextPages pages{Paper()};
  ASSERT_TRUE(pages.Start("lost", full.get()));
  pages.DrawLine(0, 0, "nowhere");
  pages.EndPage();
  EXPECT_FALSE(pages.Finish());
}

TEST(TextPages, MayBeLeftUnfinished) {
  const File file(std::tmpfile());
  TextPages pages{Paper()};
  ASSERT_TRUE(pages.Start("left", file.get()));
  pages.DrawLine(0, 0, "half a page");
}

}  // namespace
}  // namespace qvl
