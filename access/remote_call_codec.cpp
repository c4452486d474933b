#include "access/remote_call_codec.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace qvl {
namespace {

// A number of four bytes starts at a multiple of four, counted from the stub's start.
constexpr std::size_t Aligned(std::size_t offset) {
  return (offset + 3) / 4 * 4;
}

class StubWriter {
 public:
  void Byte(std::uint8_t value) { stub_.bytes[stub_.size++] = value; }

  void Long(std::uint32_t value) {
    stub_.size = Aligned(stub_.size);
    std::memcpy(&stub_.bytes[stub_.size], &value, sizeof value);
    stub_.size += sizeof value;
  }

  void Text(const RemoteText& text) {
    std::copy(text.begin(), text.end(), &stub_.bytes[stub_.size]);
    stub_.size += text.size();
  }

  const StubData& stub() const { return stub_; }

 private:
  StubData stub_;
};

// Reads past the end leave their value alone and spoil the whole stub.
class StubReader {
 public:
  explicit StubReader(std::span<const std::uint8_t> stub) : stub_(stub) {}

  std::uint8_t Byte() {
    std::uint8_t value = 0;
    Copy(&value, sizeof value);
    return value;
  }

  std::uint32_t Long() {
    offset_ = Aligned(offset_);
    std::uint32_t value = 0;
    Copy(&value, sizeof value);
    return value;
  }

  std::int32_t SignedLong() { return std::bit_cast<std::int32_t>(Long()); }

  RawLogEntry Record() {
    RawLogEntry record{};
    Copy(&record, sizeof record);
    return record;
  }

  // The answers have fixed lengths: one with bytes left over is not the one expected.
  bool AtEnd() const { return good_ && offset_ == stub_.size(); }

 private:
  void Copy(void* value, std::size_t size) {
    good_ = good_ && offset_ <= stub_.size() && stub_.size() - offset_ >= size;
    if (!good_) return;
    std::memcpy(value, stub_.data() + offset_, size);
    offset_ += size;
  }

  std::span<const std::uint8_t> stub_;
  std::size_t offset_ = 0;
  bool good_ = true;
};

RemoteStatus DecodeByteAnswer(std::span<const std::uint8_t> reply, std::uint8_t& value) {
  StubReader reader(reply);
  const std::uint8_t byte = reader.Byte();
  const RemoteStatus status = reader.Long();
  if (!reader.AtEnd()) return kBadStubData;
  value = byte;
  return status;
}

}  // namespace

StubData EncodeReadLogEntry(std::uint32_t entryNumber, std::uint32_t reserved) {
  StubWriter writer;
  writer.Long(entryNumber);
  writer.Long(reserved);
  return writer.stub();
}

StubData EncodeRemoteClearLog(std::uint8_t clearFlag, const RemoteText& userName) {
  StubWriter writer;
  writer.Byte(clearFlag);
  writer.Text(userName);
  return writer.stub();
}

StubData EncodeRemoteWriteMaintenanceNote(const RemoteText& note) {
  StubWriter writer;
  writer.Text(note);
  return writer.stub();
}

StubData EncodeMarkEntryRepaired(std::uint32_t entryNumber) {
  StubWriter writer;
  writer.Long(entryNumber);
  return writer.stub();
}

bool DecodeReadRequest(std::span<const std::uint8_t> request, std::uint32_t& entryNumber) {
  StubReader reader(request);
  const std::uint32_t number = reader.Long();
  const std::uint32_t reserved = reader.Long();
  if (!reader.AtEnd() || reserved != 0) return false;
  entryNumber = number;
  return true;
}

RemoteStatus DecodeQueryAdministratorAccess(std::span<const std::uint8_t> reply,
                                            std::int32_t& isAdministrator) {
  StubReader reader(reply);
  const std::int32_t answer = reader.SignedLong();
  const RemoteStatus status = reader.Long();
  if (!reader.AtEnd()) return kBadStubData;
  isAdministrator = answer;
  return status;
}

RemoteStatus DecodeReadLogEntry(std::span<const std::uint8_t> reply, std::uint8_t& entryStatus,
                                std::int32_t& entryCount, RawLogEntry& record) {
  StubReader reader(reply);
  const std::uint8_t byte = reader.Byte();
  const std::int32_t count = reader.SignedLong();
  const RawLogEntry delivered = reader.Record();
  const RemoteStatus status = reader.Long();
  if (!reader.AtEnd()) return kBadStubData;
  entryStatus = byte;
  entryCount = count;
  record = delivered;
  return status;
}

RemoteStatus DecodeRemoteClearLog(std::span<const std::uint8_t> reply, std::uint8_t& cleared) {
  return DecodeByteAnswer(reply, cleared);
}

RemoteStatus DecodeRemoteWriteMaintenanceNote(std::span<const std::uint8_t> reply,
                                              std::uint8_t& written, std::int32_t& noteResult) {
  StubReader reader(reply);
  const std::uint8_t byte = reader.Byte();
  const std::int32_t result = reader.SignedLong();
  const RemoteStatus status = reader.Long();
  if (!reader.AtEnd()) return kBadStubData;
  written = byte;
  noteResult = result;
  return status;
}

RemoteStatus DecodeQueryLogPresent(std::span<const std::uint8_t> reply, std::uint8_t& hasLog) {
  return DecodeByteAnswer(reply, hasLog);
}

RemoteStatus DecodeMarkEntryRepaired(std::span<const std::uint8_t> reply,
                                     std::uint8_t& repairStatus) {
  return DecodeByteAnswer(reply, repairStatus);
}

}  // namespace qvl
