#include "entries/event_log_entry.h"

#include <array>
#include <compare>

#include "entries/event_class.h"
#include "entries/event_description.h"
#include "entries/log_time_text.h"
#include "entries/severity.h"
#include "texts/strings.h"

namespace qvl {
namespace {

template <typename T>
int Sign(const T& a, const T& b) {
  return a < b ? -1 : (b < a ? 1 : 0);
}

int CompareDescriptions(const CEventLogEntry& a, const CEventLogEntry& b) {
  std::array<char, kDescriptionSize> first;
  std::array<char, kDescriptionSize> second;
  TextSink firstSink(first);
  TextSink secondSink(second);
  a.GetColumnText(Column::kDescription, firstSink);
  b.GetColumnText(Column::kDescription, secondSink);
  return CompareTexts(firstSink.view(), secondSink.view());
}

int CompareKeys(const CEventLogEntry& a, const CEventLogEntry& b, Column column) {
  switch (column) {
    case Column::kDescription:
      return CompareDescriptions(a, b);
    case Column::kClass:
      return CompareTexts(a.GetClassName(), b.GetClassName());
    case Column::kSeverity:
      return Sign(a.GetSeverity(), b.GetSeverity());
    case Column::kCount:
      return Sign(a.GetCount(), b.GetCount());
    case Column::kUpdateTime:
      return Sign(a.GetUpdateTime(), b.GetUpdateTime());
    case Column::kInitialTime:
      return Sign(a.GetInitialTime(), b.GetInitialTime());
    case Column::kEntryNumber:
      break;
  }
  return 0;
}

}  // namespace

int CEventLogEntry::GetSeverityImage() const {
  return SeverityImage(raw_.severity);
}

void CEventLogEntry::GetDescription(char* out, std::size_t size) const {
  FormatEntryDescription(raw_, out, size);
}

std::string_view CEventLogEntry::GetClassName() const {
  return EventClassName(raw_.eventClass, CurrentLanguage());
}

std::string_view CEventLogEntry::GetSeverityName() const {
  return SeverityName(raw_.severity, CurrentLanguage());
}

void CEventLogEntry::GetCodeText(TextSink& out) const {
  out.AppendSigned(raw_.eventCode);
}

void CEventLogEntry::GetCountText(TextSink& out) const {
  out.AppendSigned(static_cast<std::int32_t>(raw_.count));
}

void CEventLogEntry::FormatUpdateTime(TextSink& out) const {
  FormatLogTime(out, raw_.updateTime);
}

void CEventLogEntry::FormatInitialTime(TextSink& out) const {
  FormatLogTime(out, raw_.initialTime);
}

void CEventLogEntry::GetColumnText(Column column, TextSink& out) const {
  switch (column) {
    case Column::kDescription:
      AppendEventDescription(raw_.eventClass, raw_.eventCode, EventData(raw_.data), out);
      break;
    case Column::kClass:
      out.Append(GetClassName());
      break;
    case Column::kSeverity:
      out.Append(GetSeverityName());
      break;
    case Column::kCount:
      GetCountText(out);
      break;
    case Column::kUpdateTime:
      FormatUpdateTime(out);
      break;
    case Column::kInitialTime:
      FormatInitialTime(out);
      break;
    case Column::kEntryNumber:
      out.AppendDecimal(raw_.entryNumber);
      break;
  }
}

std::string CEventLogEntry::GetColumnText(Column column) const {
  std::array<char, kDescriptionSize> buffer;
  TextSink text(buffer);
  GetColumnText(column, text);
  return std::string(text.view());
}

int CompareTexts(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty()) return static_cast<int>(a.empty()) - static_cast<int>(b.empty());
  // The bytes of a string_view compare as unsigned numbers.
  const int result = a.compare(b);
  return Sign(result, 0);
}

int CompareEntries(const CEventLogEntry& a, const CEventLogEntry& b, Column column,
                   bool ascending) {
  int result = CompareKeys(a, b, column);
  if (result == 0) result = Sign(a.GetEntryNumber(), b.GetEntryNumber());
  return ascending ? result : -result;
}

}  // namespace qvl
