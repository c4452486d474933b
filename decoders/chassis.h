#ifndef QVL_DECODERS_CHASSIS_H_
#define QVL_DECODERS_CHASSIS_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>

#include "decoders/rows.h"
#include "entries/event_data.h"
#include "entries/field_formatters.h"
#include "entries/message.h"
#include "entries/text_sink.h"

namespace qvl {

/// The kind of chassis that a fan, a sensor or a power supply sits in.
enum class ChassisForm : std::uint8_t {
  kNone,
  kSystem,
  kExternalChassis,
  kExternalStorage,
  kInternalStorage,
  kBladeEnclosure,
  kPowerEnclosure
};

/// The form from the chassis type in data byte 0 and, for type 1, the chassis number in byte 1.
constexpr ChassisForm ChooseChassisForm(EventData data) {
  switch (data.Byte<0>()) {
    case 1:
      return data.Byte<1>() == 0 ? ChassisForm::kSystem : ChassisForm::kExternalChassis;
    case 2:
      return ChassisForm::kExternalStorage;
    case 3:
      return ChassisForm::kInternalStorage;
    case 4:
      return ChassisForm::kBladeEnclosure;
    case 5:
      return ChassisForm::kPowerEnclosure;
    default:
      return ChassisForm::kNone;
  }
}

/// The six messages of one code. `kFields` counts the fields that belong to the event, not to its
/// chassis. An enclosure message has fields of its own and, where it has one field more than its
/// caller gives, the enclosure's identity.
template <std::size_t kFields, std::size_t kEnclosureFields = kFields + 1>
struct ChassisRow {
  std::uint16_t code;
  std::uint8_t textOffset;  // of the chassis text, which enclosures use as their serial number
  TextMessage<kFields> system;
  TextMessage<kFields + 1> externalChassis;
  TextMessage<kFields + 2> externalStorage;
  TextMessage<kFields + 2> internalStorage;
  TextMessage<kEnclosureFields> bladeEnclosure;
  TextMessage<kEnclosureFields> powerEnclosure;
};

template <std::size_t N>
using TextFields = std::array<Text, N>;

/// `fields` with `inserted` in front of the field at `kIndex`.
template <std::size_t kIndex, std::size_t N, std::size_t M>
constexpr TextFields<N + M> InsertFields(const TextFields<N>& fields,
                                         const TextFields<M>& inserted) {
  static_assert(kIndex <= N);
  TextFields<N + M> all;
  auto* at = std::copy_n(fields.data(), kIndex, all.data());
  at = std::copy_n(inserted.data(), M, at);
  std::copy_n(fields.data() + kIndex, N - kIndex, at);
  return all;
}

/// Appends `message` with the fields of an array.
template <typename M, std::size_t N>
void FormatFields(const M& message, const TextFields<N>& fields, TextSink& out) {
  std::apply([&](const auto&... field) { out.Format(message, field...); }, fields);
}

/// Appends the message of `row` for the system, an external chassis or a storage system, and
/// nothing for an enclosure. The chassis stands behind the first `kLeading` of the fields.
template <std::size_t kLeading = 0, std::size_t N, std::size_t E>
void FormatSystemOrStorage(const ChassisRow<N, E>& row, std::size_t textOffset, EventData data,
                           TextSink& out, const TextFields<N>& fields) {
  const ChassisForm form = ChooseChassisForm(data);
  if (form == ChassisForm::kSystem) {
    FormatFields(row.system, fields, out);
  } else if (form == ChassisForm::kExternalChassis) {
    const TextFields<1> chassis{FormatNameOrNumber(data.Byte<1>(), data.TextAt(textOffset))};
    FormatFields(row.externalChassis, InsertFields<kLeading>(fields, chassis), out);
  } else if (form == ChassisForm::kExternalStorage || form == ChassisForm::kInternalStorage) {
    Scratch prefix;
    const TextFields<2> chassis{FormatChassisPrefix(data.TextAt(textOffset), prefix),
                                FormatByteOrUnknown(data.Byte<1>())};
    const bool external = form == ChassisForm::kExternalStorage;
    FormatFields(external ? row.externalStorage : row.internalStorage,
                 InsertFields<kLeading>(fields, chassis), out);
  }
}

/// Appends the message of `row` for a blade or power enclosure, and nothing for another chassis.
/// The enclosure's identity stands in front of the last `kTrailing` of the fields.
template <std::size_t kTrailing = 0, std::size_t F, std::size_t E, std::size_t N>
void FormatEnclosure(const ChassisRow<F, E>& row, std::size_t textOffset, EventData data,
                     TextSink& out, const TextFields<N>& fields) {
  static_assert(N == E || N + 1 == E);
  static_assert(kTrailing <= N);
  const ChassisForm form = ChooseChassisForm(data);
  const bool blade = form == ChassisForm::kBladeEnclosure;
  if (!blade && form != ChassisForm::kPowerEnclosure) return;
  const auto& message = blade ? row.bladeEnclosure : row.powerEnclosure;
  if constexpr (N == E) {
    FormatFields(message, fields, out);
  } else {
    Scratch id;
    const TextFields<1> identity{FormatEnclosureId(data.TextAt(textOffset), data, id)};
    FormatFields(message, InsertFields<N - kTrailing>(fields, identity), out);
  }
}

/// Appends the message of `row` for the chassis that `data` names, where enclosures have the same
/// fields as the other forms.
template <std::size_t kLeading = 0, std::size_t kTrailing = 0, std::size_t N, std::size_t E>
void FormatForChassis(const ChassisRow<N, E>& row, std::size_t textOffset, EventData data,
                      TextSink& out, const TextFields<N>& fields) {
  FormatSystemOrStorage<kLeading>(row, textOffset, data, out, fields);
  FormatEnclosure<kTrailing>(row, textOffset, data, out, fields);
}

template <std::size_t N, std::size_t E>
void AddChassisRow(const ChassisRow<N, E>& row, TableEntries& entries) {
  entries.Add(row.system);
  entries.Add(row.externalChassis);
  entries.Add(row.externalStorage);
  entries.Add(row.internalStorage);
  entries.Add(row.bladeEnclosure);
  entries.Add(row.powerEnclosure);
}

template <std::size_t N, std::size_t E, std::size_t kRows>
void AddChassisRows(const ChassisRow<N, E> (&rows)[kRows], TableEntries& entries) {
  for (const ChassisRow<N, E>& row : rows) AddChassisRow(row, entries);
}

}  // namespace qvl

#endif  // QVL_DECODERS_CHASSIS_H_
