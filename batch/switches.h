#ifndef QVL_BATCH_SWITCHES_H_
#define QVL_BATCH_SWITCHES_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace qvl {

enum class SwitchKind : std::uint8_t {
  kUnknown,
  kRunLog,
  kMachine,
  kSave,
  kExport,
  kPrint,
  kReport,
  kClear,
  kAckAlerts,
  kNote,
};

/// One argument of a batch run. `value` is a part of the argument's own text.
struct Switch {
  SwitchKind kind = SwitchKind::kUnknown;
  std::string_view value;
};

/// True for the two characters that a switch may begin with.
bool BeginsSwitch(char c);

/// Reads an argument: '/' or '-', a keyword in any case, for most switches ':' and a value of at
/// least one character, which is everything up to the argument's end.
Switch ParseSwitch(std::string_view argument);

/// A file name, with the extension appended when the name has no '.' anywhere, folders included.
std::string WithExtension(std::string_view name, std::string_view extension);

}  // namespace qvl

#endif  // QVL_BATCH_SWITCHES_H_
