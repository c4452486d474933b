#include "entries/event_description.h"

#include <array>
#include <cstring>

#include "decoders/decoders.h"
#include "entries/event_class.h"
#include "entries/message.h"

namespace qvl {
namespace {

constexpr Message<Number, Number> kUnknownEvent = "Unknown Event (Class %d, Code %d)";

void DescribeEmptyEvent(std::uint16_t /*code*/, EventData /*data*/, TextSink& out) {
  out.Append(std::string_view("Empty"));
}

// The class is called "Internal Test", but its entries have always read "Reserved".
void DescribeInternalTestEvent(std::uint16_t /*code*/, EventData /*data*/, TextSink& out) {
  out.Append(std::string_view("Reserved"));
}

using DecoderByClass = std::array<Decoder, kEventClassEnd>;

DecoderByClass CollectDecoders() {
  DecoderByClass decoders{};
  decoders[0] = DescribeEmptyEvent;
  decoders[1] = DescribeInternalTestEvent;
  for (const ClassDecoder& decoder : ClassDecoders()) {
    decoders[decoder.eventClass] = decoder.describe;
  }
  return decoders;
}

}  // namespace

int AppendEventDescription(std::uint16_t eventClass, std::uint16_t code, EventData data,
                           TextSink& out) {
  static const DecoderByClass decoders = CollectDecoders();
  const Decoder describe = eventClass < kEventClassEnd ? decoders[eventClass] : nullptr;
  if (describe != nullptr) describe(code, data, out);
  if (!out.empty()) return 1;
  out.Format(kUnknownEvent, eventClass, code);
  return 0;
}

int FormatEventDescription(std::uint16_t eventClass, std::uint16_t code, EventData data, char* out,
                           std::size_t size) {
  TextSink sink(out, size);
  const int result = AppendEventDescription(eventClass, code, data, sink);
  if (size != 0) std::memset(out + sink.size(), 0, size - sink.size());
  return result;
}

int FormatEntryDescription(const RawLogEntry& entry, char* out, std::size_t size) {
  return FormatEventDescription(entry.eventClass, entry.eventCode, EventData(entry.data), out,
                                size);
}

}  // namespace qvl
