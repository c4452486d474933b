#ifndef QVL_DECODERS_DECODERS_H_
#define QVL_DECODERS_DECODERS_H_

#include <cstdint>
#include <span>

#include "entries/event_data.h"
#include "entries/text_sink.h"

namespace qvl {

class TableEntries;

// Every decoder keeps one contract: it appends the description of an event to `out`, which is
// empty at the call, and appends nothing for a code it does not know.

void DescribeEnvironmentEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeMemoryEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeCacheEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeProcessorEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeHostBusEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeEisaEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribePciEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeSlotEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribePostEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribePowerEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeAsrEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeOsEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeNetworkEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeScsiEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeArrayEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeSystemErrorEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeRevisionEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeMaintenanceEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeInfrastructureEvent(std::uint16_t code, EventData data, TextSink& out);
void DescribeNodeControllerEvent(std::uint16_t code, EventData data, TextSink& out);

using Decoder = void (*)(std::uint16_t code, EventData data, TextSink& out);

struct ClassDecoder {
  std::uint16_t eventClass;
  Decoder describe;
};

/// Every decoder with its event class, in ascending order of class. This list is the only
/// registration: a decoder that is not in it is never called.
std::span<const ClassDecoder> ClassDecoders();

// The message and name tables of each family, for the test that looks for unreached rows.
void ListEnvironmentTables(TableEntries& entries);
void ListMemoryTables(TableEntries& entries);
void ListProcessorBusTables(TableEntries& entries);
void ListPowerTables(TableEntries& entries);
void ListSystemTables(TableEntries& entries);
void ListInfrastructureTables(TableEntries& entries);
void ListNodeControllerTables(TableEntries& entries);

}  // namespace qvl

#endif  // QVL_DECODERS_DECODERS_H_
