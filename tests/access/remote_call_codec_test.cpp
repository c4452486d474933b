#include "access/remote_call_codec.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace qvl {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes ToBytes(const StubData& stub) {
  return {stub.bytes.begin(), stub.bytes.begin() + static_cast<std::ptrdiff_t>(stub.size)};
}

RemoteText FilledText() {
  RemoteText text{};
  for (std::size_t i = 0; i + 1 < text.size(); ++i)
    text[i] = static_cast<std::uint8_t>('A' + i % 26);
  return text;
}

TEST(RemoteCallCodecTest, AReadAsksWithTwoLongs) {
  EXPECT_EQ(ToBytes(EncodeReadLogEntry(0x01020304, 0)), (Bytes{4, 3, 2, 1, 0, 0, 0, 0}));
  EXPECT_EQ(ToBytes(EncodeReadLogEntry(0xFFFFFFFF, 5)), (Bytes{255, 255, 255, 255, 5, 0, 0, 0}));
}

TEST(RemoteCallCodecTest, AClearSendsItsFlagAndTheNameDirectlyBehindIt) {
  const RemoteText name = FilledText();
  const Bytes stub = ToBytes(EncodeRemoteClearLog(1, name));
  ASSERT_EQ(stub.size(), 229U);
  EXPECT_EQ(stub[0], 1);
  EXPECT_TRUE(std::equal(name.begin(), name.end(), stub.begin() + 1));
}

TEST(RemoteCallCodecTest, ANoteIsSentAsItsBytes) {
  const RemoteText note = FilledText();
  const Bytes stub = ToBytes(EncodeRemoteWriteMaintenanceNote(note));
  EXPECT_EQ(stub, Bytes(note.begin(), note.end()));
}

TEST(RemoteCallCodecTest, AMarkSendsItsNumber) {
  EXPECT_EQ(ToBytes(EncodeMarkEntryRepaired(258)), (Bytes{2, 1, 0, 0}));
}

TEST(RemoteCallCodecTest, AReadRequestIsReadBack) {
  std::uint32_t number = 7;
  EXPECT_TRUE(DecodeReadRequest(EncodeReadLogEntry(0x80000001, 0).View(), number));
  EXPECT_EQ(number, 0x80000001U);
  EXPECT_FALSE(DecodeReadRequest(EncodeReadLogEntry(3, 1).View(), number));
  EXPECT_FALSE(DecodeReadRequest(EncodeMarkEntryRepaired(3).View(), number));
  EXPECT_FALSE(DecodeReadRequest(EncodeRemoteWriteMaintenanceNote({}).View(), number));
  EXPECT_EQ(number, 0x80000001U);
}

// Every procedure's answer as it comes, in one shape for all: bytes in, outputs as text.
struct Answer {
  const char* name;
  Bytes reply;
  RemoteStatus status;
  std::string outputs;
  std::function<RemoteStatus(const Bytes&, std::string&)> decode;
};

std::string Join(long first, long second = 0, long third = 0) {
  return std::to_string(first) + ' ' + std::to_string(second) + ' ' + std::to_string(third);
}

template <typename Decode>
std::function<RemoteStatus(const Bytes&, std::string&)> ByteAnswer(Decode decode) {
  return [decode](const Bytes& reply, std::string& outputs) {
    std::uint8_t value = 77;
    const RemoteStatus status = decode(reply, value);
    outputs = Join(value);
    return status;
  };
}

Bytes ReadReply() {
  Bytes reply = {9, 0xAA, 0xBB, 0xCC, 0xFE, 0xFF, 0xFF, 0xFF};
  for (int i = 0; i < 256; ++i) reply.push_back(static_cast<std::uint8_t>(i));
  reply.insert(reply.end(), {2, 0, 0, 0xE0});
  return reply;
}

std::vector<Answer> Answers() {
  return {
      {"administrator",
       {0xFF, 0xFF, 0xFF, 0x7F, 0, 0, 0, 0},
       kRemoteOk,                                                             Join(0x7FFFFFFF),
       [](const Bytes& reply,                                                                                                                                                                                                                                                           std::string& outputs) {
         std::int32_t value = 77;
         const RemoteStatus status = DecodeQueryAdministratorAccess(reply, value);
         outputs = Join(value);
         return status;
       }},
 // The padding before the count may hold anything. Status 0xE0000002, and yet the outputs.
      {"read",                  ReadReply(),                             RM_E_NO_DRIVER,                                Join(9,                                               -2,                                                                                                                                                       0x05040302),
       [](const Bytes& reply, std::string& outputs) {
         std::uint8_t entryStatus = 77;
         std::int32_t count = 77;
         RawLogEntry record{};
         record.entryNumber = 77;
         const RemoteStatus status = DecodeReadLogEntry(reply, entryStatus, count, record);
         outputs = Join(entryStatus, count, record.entryNumber);
         return status;
       }},
      {"clear",       {1, 0, 0, 0, 0, 0, 0, 0},                kRemoteOk,                                        Join(1),                                                                                                 ByteAnswer(&DecodeRemoteClearLog)                                                                                                                                                                                                                                       },
      {"note",
       {255, 1, 2, 3, 0, 0, 0, 0x80, 0xBA, 0x06, 0, 0},
       kServerUnavailable,Join(255,-2147483648L),
       [](const Bytes& reply, std::string& outputs) {
         std::uint8_t written = 77;
         std::int32_t result = 77;
         const RemoteStatus status = DecodeRemoteWriteMaintenanceNote(reply, written, result);
         outputs = Join(written, result);
         return status;
       }},
      {"present", {3, 9, 9, 9, 0, 0, 0, 0},         kRemoteOk,                                                                  Join(3),                                                                                                            ByteAnswer(&DecodeQueryLogPresent)                                                                                                                                                                                                                                                 },
      {"repair",
       {135, 0, 0, 0, 5, 0, 0, 0},
       kAccessDenied,                Join(135),
       ByteAnswer(&DecodeMarkEntryRepaired)},
  };
}

class RemoteAnswerTest : public ::testing::TestWithParam<Answer> {
 protected:
  // The outputs when nothing sets them.
  static std::string Untouched(const std::string& name) {
    if (name == "read") return Join(77, 77, 77);
    return name == "note" ? Join(77, 77) : Join(77);
  }
};

INSTANTIATE_TEST_SUITE_P(Procedures, RemoteAnswerTest, ::testing::ValuesIn(Answers()),
                         [](const auto& each) { return each.param.name; });

TEST_P(RemoteAnswerTest, IsReadWhateverItsStatus) {
  std::string outputs;
  EXPECT_EQ(GetParam().decode(GetParam().reply, outputs), GetParam().status);
  EXPECT_EQ(outputs, GetParam().outputs);
}

TEST_P(RemoteAnswerTest, OfAnyOtherLengthIsBadAndSetsNothing) {
  for (std::size_t size = 0; size <= GetParam().reply.size() + 8; ++size) {
    if (size == GetParam().reply.size()) continue;
    Bytes reply = GetParam().reply;
    reply.resize(size);
    std::string outputs;
    EXPECT_EQ(GetParam().decode(reply, outputs), kBadStubData) << size;
    EXPECT_EQ(outputs, Untouched(GetParam().name)) << size;
  }
}

TEST(RemoteCallCodecTest, ARecordArrivesByteForByte) {
  std::uint8_t entryStatus = 0;
  std::int32_t count = 0;
  RawLogEntry record{};
  EXPECT_EQ(DecodeReadLogEntry(ReadReply(), entryStatus, count, record), RM_E_NO_DRIVER);
  Bytes bytes(sizeof record);
  std::memcpy(bytes.data(), &record, sizeof record);
  const Bytes reply = ReadReply();
  EXPECT_EQ(bytes, Bytes(reply.begin() + 8, reply.begin() + 264));
}

}  // namespace
}  // namespace qvl
