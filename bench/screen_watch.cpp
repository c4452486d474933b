#include "bench/screen_watch.h"

#include <X11/XWDFile.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace qvl::bench {
namespace {

constexpr std::chrono::milliseconds kBetweenLooks{1};
constexpr int kLinesBetweenLooks = 7;  // some of each row of text: looking costs as good as nothing
constexpr std::chrono::milliseconds kQuiet{333};
constexpr std::chrono::seconds kPatience{30};
constexpr int kTitleDepth = 3;  // a window manager puts its frame around a window
constexpr std::uint32_t kDark = 0x60;

[[noreturn]] void GiveUp(const std::string& why) {
  std::fprintf(stderr, "%s\n", why.c_str());
  std::exit(1);
}

// A window may be gone between the question for it and the answer.
int IgnoreError(Display* /*display*/, XErrorEvent* /*event*/) {
  return 0;
}

std::uint32_t FromBigEndian(std::uint32_t value) {
  return __builtin_bswap32(value);
}

bool IsDark(std::uint32_t pixel) {
  return (pixel & 0xFFU) < kDark && (pixel >> 8U & 0xFFU) < kDark && (pixel >> 16U & 0xFFU) < kDark;
}

}  // namespace

struct ScreenWatch::Server {
  Server() : display(XOpenDisplay(nullptr)) {}
  ~Server() {
    if (display != nullptr) XCloseDisplay(display);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  std::optional<Area> AreaOf(Window window) const;
  std::optional<Area> FindBelow(Window parent, std::string_view title, int depth) const;

  Display* const display;
};

// Nothing for a window that is not on the screen.
std::optional<Area> ScreenWatch::Server::AreaOf(Window window) const {
  XWindowAttributes attributes = {};
  if (XGetWindowAttributes(display, window, &attributes) == 0) return {};
  if (attributes.map_state != IsViewable) return {};
  Area area{.width = attributes.width, .height = attributes.height};
  Window below = 0;
  XTranslateCoordinates(display, window, attributes.root, 0, 0, &area.x, &area.y, &below);
  return area;
}

std::optional<Area> ScreenWatch::Server::FindBelow(Window parent, std::string_view title,
                                                   int depth) const {
  Window root = 0;
  Window above = 0;
  Window* children = nullptr;
  unsigned count = 0;
  if (XQueryTree(display, parent, &root, &above, &children, &count) == 0) return {};
  const std::unique_ptr<Window, decltype(&XFree)> owner(children, &XFree);
  for (const Window child : std::span(children, count)) {
    char* name = nullptr;
    if (XFetchName(display, child, &name) != 0) {
      const std::unique_ptr<char, decltype(&XFree)> nameOwner(name, &XFree);
      const std::optional<Area> area = AreaOf(child);
      if (area && std::string_view(name).starts_with(title)) return area;
    }
    if (depth + 1 >= kTitleDepth) continue;
    if (const std::optional<Area> found = FindBelow(child, title, depth + 1)) return found;
  }
  return {};
}

ScreenWatch::ScreenWatch(const std::string& frameBuffer) : server_(std::make_unique<Server>()) {
  if (server_->display == nullptr) GiveUp("there is no screen to watch");
  XSetErrorHandler(IgnoreError);
  const int file = ::open(frameBuffer.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status = {};
  if (file < 0 || ::fstat(file, &status) != 0) GiveUp(frameBuffer + " cannot be read");
  const auto size = static_cast<std::size_t>(status.st_size);
  void* const mapped = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, file, 0);
  ::close(file);
  XWDFileHeader header = {};
  if (mapped == MAP_FAILED || size < sizeof header) GiveUp(frameBuffer + " cannot be mapped");
  std::memcpy(&header, mapped, sizeof header);
  const std::size_t begin = FromBigEndian(header.header_size) +
                            std::size_t{FromBigEndian(header.ncolors)} * sizeof(XWDColor);
  lineSize_ = FromBigEndian(header.bytes_per_line);
  if (FromBigEndian(header.bits_per_pixel) != 32 ||
      begin + lineSize_ * FromBigEndian(header.pixmap_height) > size) {
    GiveUp(frameBuffer + " does not hold 32 bits a pixel");
  }
  pixels_ = static_cast<const unsigned char*>(mapped) + begin;
}

ScreenWatch::~ScreenWatch() = default;

std::optional<Area> ScreenWatch::FindWindow(std::string_view title) {
  return server_->FindBelow(DefaultRootWindow(server_->display), title, 0);
}

std::span<const std::uint32_t> ScreenWatch::Line(const Area& area, int line) const {
  const unsigned char* const at = pixels_ + lineSize_ * static_cast<std::size_t>(area.y + line) +
                                  sizeof(std::uint32_t) * static_cast<std::size_t>(area.x);
  return {reinterpret_cast<const std::uint32_t*>(at), static_cast<std::size_t>(area.width)};
}

int ScreenWatch::DarkLines(const Area& area) const {
  int dark = 0;
  for (int line = 0; line < area.height; ++line) {
    const std::span<const std::uint32_t> pixels = Line(area, line);
    if (std::any_of(pixels.begin(), pixels.end(), IsDark)) ++dark;
  }
  return dark;
}

std::uint64_t ScreenWatch::Digest(const Area& area) const {
  std::uint64_t digest = 0;
  for (int line = 0; line < area.height; line += kLinesBetweenLooks) {
    for (const std::uint32_t pixel : Line(area, line)) digest = digest * 31 + pixel;
  }
  return digest;
}

Instant ScreenWatch::RestAfterChange(const Area& area, std::uint64_t before) const {
  const Instant begun = std::chrono::steady_clock::now();
  std::optional<Instant> changed;
  std::uint64_t last = before;
  for (Instant look = begun; !changed || look - *changed < kQuiet;) {
    if (look - begun > kPatience) GiveUp("the window does not change, or does not come to rest");
    std::this_thread::sleep_for(kBetweenLooks);
    const std::uint64_t now = Digest(area);
    look = std::chrono::steady_clock::now();
    if (now != last) changed = look;
    last = now;
  }
  return *changed;
}

void ScreenWatch::MovePointer(int x, int y) {
  XTestFakeMotionEvent(server_->display, -1, x, y, 0);
  XSync(server_->display, False);
}

void ScreenWatch::Click(unsigned button) {
  XTestFakeButtonEvent(server_->display, button, True, 0);
  XTestFakeButtonEvent(server_->display, button, False, 0);
  XSync(server_->display, False);
}

}  // namespace qvl::bench
