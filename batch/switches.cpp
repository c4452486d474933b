#include "batch/switches.h"

#include "entries/ascii_case.h"

namespace qvl {
namespace {

enum class Form : std::uint8_t {
  kValue,   // the keyword, ending with ':', and a value
  kWhole,   // the keyword alone
  kPrefix,  // the keyword and anything behind it: scripts write /clearall
};

struct SwitchRow {
  std::string_view keyword;
  Form form;
  SwitchKind kind;
};

constexpr SwitchRow kSwitchRows[] = {
    {"f:",        Form::kValue,  SwitchKind::kRunLog   },
    {"m:",        Form::kValue,  SwitchKind::kMachine  },
    {"save:",     Form::kValue,  SwitchKind::kSave     },
    {"export:",   Form::kValue,  SwitchKind::kExport   },
    {"p",         Form::kWhole,  SwitchKind::kPrint    },
    {"p:",        Form::kValue,  SwitchKind::kReport   },
    {"clear",     Form::kPrefix, SwitchKind::kClear    },
    {"ackalerts", Form::kPrefix, SwitchKind::kAckAlerts},
    {"note:",     Form::kValue,  SwitchKind::kNote     },
};

}  // namespace

bool BeginsSwitch(char c) {
  return c == '/' || c == '-';
}

Switch ParseSwitch(std::string_view argument) {
  if (argument.empty() || !BeginsSwitch(argument.front())) return {};
  const std::string_view text = argument.substr(1);
  for (const SwitchRow& row : kSwitchRows) {
    if (!BeginsIgnoringCase(text, row.keyword)) continue;
    const std::string_view rest = text.substr(row.keyword.size());
    const bool accepted = row.form == Form::kPrefix || (row.form == Form::kWhole) == rest.empty();
    if (accepted) return {row.kind, row.form == Form::kValue ? rest : std::string_view()};
  }
  return {};
}

std::string WithExtension(std::string_view name, std::string_view extension) {
  std::string whole(name);
  if (name.find('.') == std::string_view::npos) whole += extension;
  return whole;
}

}  // namespace qvl
