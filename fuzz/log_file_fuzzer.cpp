// Any bytes are either a log or refused; what is a log can be listed, exported and written back.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "files/additional_exports.h"
#include "files/csv_export.h"
#include "files/log_file.h"
#include "files/text_report.h"
#include "fuzz/memory_streams.h"

namespace {

using qvl::fuzz::MemorySource;
using qvl::fuzz::NoSink;

void Export(const qvl::CEventLogEntry& entry) {
  static NoSink ignored;
  static qvl::BufferedWriter out(ignored);
  qvl::AppendCsvLine(entry, out);
  qvl::AppendStrictCsvLine(entry, out);
  qvl::AppendJsonLine(entry, out);
  qvl::AppendReportEntry(entry, "\n", out);
}

// Reads the way a stream of unknown length is read.
std::size_t CountRecords(std::span<const std::uint8_t> bytes, bool exportThem) {
  MemorySource source(bytes);
  static auto* const storage = new unsigned char[sizeof(qvl::LogReader)];
  auto* const reader = new (storage) qvl::LogReader(source);
  if (!reader->ReadHeader().ok()) return 0;
  static auto* const entries = new std::array<qvl::CEventLogEntry, 4>;
  std::size_t count = 0;
  std::size_t got = 0;
  do {
    if (!reader->ReadRecords(*entries, got).ok()) std::abort();
    count += got;
    for (std::size_t i = 0; exportThem && i < got; ++i) Export((*entries)[i]);
  } while (got == entries->size());
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  // Exports are slow beside reading; a byte that mutations change often chooses when to make them.
  const bool exportThem = size > 0 && data[size - 1] % 8 == 0;
  const std::size_t count = CountRecords(bytes, exportThem);
  const bool isLog =
      size >= qvl::kLogFileHeaderSize && std::memcmp(data, "Zelkor QVX Log v1.0", 19) == 0;
  const std::size_t expected =
      isLog ? (size - qvl::kLogFileHeaderSize) / qvl::kLogFileRecordSize : 0;
  if (count != expected) std::abort();
  return 0;
}
