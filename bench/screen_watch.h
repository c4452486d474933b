#ifndef QVL_BENCH_SCREEN_WATCH_H_
#define QVL_BENCH_SCREEN_WATCH_H_

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qvl::bench {

using Instant = std::chrono::steady_clock::time_point;

/// A part of the screen, in pixels.
struct Area {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

/// An X screen without a monitor, whose server keeps its pixels in a file: they are looked at
/// without a question to the server, so that watching does not slow down what is watched.
class ScreenWatch {
 public:
  /// frameBuffer  the file that `Xvfb -fbdir` made for the screen of $DISPLAY, 32 bits a pixel.
  /// Ends the process with a message when there is no such screen.
  explicit ScreenWatch(const std::string& frameBuffer);
  ~ScreenWatch();
  ScreenWatch(const ScreenWatch&) = delete;
  ScreenWatch& operator=(const ScreenWatch&) = delete;

  /// Where the window stands whose title begins with `title`; nothing while there is none.
  std::optional<Area> FindWindow(std::string_view title);

  /// How many lines of the area have a dark pixel: above 0 when there is text in it.
  int DarkLines(const Area& area) const;

  /// A number that changes when the area does.
  std::uint64_t Digest(const Area& area) const;

  /// Waits until the area has another digest than `before`, and then until it has not changed for
  /// a third of a second. The moment of the last change. Ends the process when the window does not
  /// change, or does not come to rest, within 30 seconds.
  Instant RestAfterChange(const Area& area, std::uint64_t before) const;

  void MovePointer(int x, int y);
  /// Presses and releases the button where the pointer stands.
  void Click(unsigned button);

 private:
  struct Server;  // Xlib's names stay out of here: some of them are macros
  std::span<const std::uint32_t> Line(const Area& area, int line) const;

  std::unique_ptr<Server> server_;
  const unsigned char* pixels_ = nullptr;  // mapped for as long as the process lives
  std::size_t lineSize_ = 0;
};

}  // namespace qvl::bench

#endif  // QVL_BENCH_SCREEN_WATCH_H_
