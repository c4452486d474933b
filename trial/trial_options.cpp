#include "trial/trial_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>
#include <string_view>

#include "tools/qvlog/parsing.h"

namespace qvl {
namespace {

constexpr int kUsage = 2;
constexpr std::uint64_t kLongestTimeMs = 3'600'000;

constexpr const char* kDescription =
    "A substitute for a machine's remote monitor service, for trials and tests. It serves the log "
    "in LOG.qvx and writes every change back to it.";

constexpr const char* kFooter =
    "A STATUS is decimal, or hexadecimal behind 0x: 5, 0xE0000002.\n"
    "Calls and entries are counted over all connections, from 1.";

// A status as users write it.
bool ParseStatus(std::string_view text, RemoteStatus& status) {
  if (!text.starts_with("0x") && !text.starts_with("0X")) return ParseNumber(text, status);
  text.remove_prefix(2);
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, status, 16);
  return !text.empty() && error == std::errc() && stopped == end;
}

template <typename Number>
Number NumberWithin(const std::string& given, std::uint64_t lowest, std::uint64_t highest) {
  std::uint64_t value = 0;
  if (!ParseNumber(given, value) || value < lowest || value > highest) {
    throw CLI::ValidationError("'" + given + "' is no whole number from " + std::to_string(lowest) +
                               " to " + std::to_string(highest));
  }
  return static_cast<Number>(value);
}

template <typename Number>
void AddNumber(CLI::App& app, const char* name, const char* type, Number& value, const char* help,
               std::uint64_t lowest = 1,
               std::uint64_t highest = std::numeric_limits<Number>::max()) {
  const auto parse = [&value, lowest, highest](const std::string& given) {
    value = NumberWithin<Number>(given, lowest, highest);
  };
  app.add_option_function<std::string>(name, parse, help)->type_name(type);
}

void AddTime(CLI::App& app, const char* name, std::chrono::milliseconds& value, const char* help) {
  const auto parse = [&value](const std::string& given) {
    value = std::chrono::milliseconds(NumberWithin<std::int64_t>(given, 0, kLongestTimeMs));
  };
  app.add_option_function<std::string>(name, parse, help)->type_name("MS");
}

// A switch that could never fail anything is a mistake: whoever gave it waits for a failure.
template <typename Number>
void AddFailure(const std::string& pair, Number lowest, std::map<Number, RemoteStatus>& failures) {
  const std::string_view text = pair;
  const std::size_t equals = text.find('=');
  Number number = 0;
  RemoteStatus status = 0;
  if (equals == std::string_view::npos || !ParseNumber(text.substr(0, equals), number) ||
      !ParseStatus(text.substr(equals + 1), status)) {
    throw CLI::ValidationError("'" + pair + "' is no NUMBER=STATUS");
  }
  if (number < lowest) {
    throw CLI::ValidationError("'" + pair + "': the first number is " + std::to_string(lowest));
  }
  if (status == kRemoteOk) {
    throw CLI::ValidationError("'" + pair + "': the status 0 is no failure");
  }
  failures[number] = status;
}

// An option that may be given several times, each with a number and the status it gets.
template <typename Number>
void AddFailures(CLI::App& app, const char* name, Number lowest,
                 std::map<Number, RemoteStatus>& failures, const char* help) {
  const auto parse = [&failures, lowest](const std::vector<std::string>& given) {
    for (const std::string& pair : given) AddFailure(pair, lowest, failures);
  };
  app.add_option_function<std::vector<std::string>>(name, parse, help)
      ->type_name("NUMBER=STATUS")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void AddVersion(CLI::App& app, TrialOptions& options) {
  const auto parse = [&options](const std::string& given) {
    const std::string_view text = given;
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos ||
        !ParseNumber(text.substr(0, point), options.interfaceMajor) ||
        !ParseNumber(text.substr(point + 1), options.interfaceMinor)) {
      throw CLI::ValidationError("'" + given + "' is no version: write 2.0");
    }
  };
  app.add_option_function<std::string>("--interface-version", parse,
                                       "Offer this version of the interface (default 2.0)")
      ->type_name("MAJOR.MINOR");
}

void AddAnswers(CLI::App& app, TrialOptions& options) {
  app.add_flag("--not-administrator", options.notAdministrator,
               "The caller is no administrator and changes nothing");
  app.add_flag("--no-log", options.noLog, "The machine keeps no log");
  app.add_flag("--no-driver", options.noDriver,
               "Every call returns 0xE0000002: no system management driver");
  app.add_flag("--refuse-note", options.refuseNote, "Maintenance notes are not written");
  app.add_flag("--refuse-clear", options.refuseClear, "The log is not cleared");
  app.add_flag("--refuse-repair", options.refuseRepair, "No entry is marked repaired");
  AddNumber(app, "--sparse", "STEP", options.sparseStep,
            "Deliver entry numbers multiplied by this");
  AddTime(app, "--event-every", options.eventEvery,
          "The newest event occurs again so often: its count and update time change");
}

void AddFailures(CLI::App& app, TrialOptions& options) {
  AddFailures<std::uint64_t>(app, "--fail-call", 1, options.failCalls,
                             "Fail the call of this number");
  AddFailures<std::uint32_t>(app, "--fail-entry", 0, options.failEntries,
                             "Fail a read that asks for this entry");
  AddNumber(app, "--die-in-call", "NUMBER", options.dieInCall,
            "End without an answer in the call of this number");
  AddTime(app, "--delay", options.delay, "Answer every call so much later");
  AddNumber(app, "--number-falls-back", "NUMBER", options.numberFallsBackAt,
            "This delivered entry and all later ones repeat the entry number before it");
  AddVersion(app, options);
}

void AddTransport(CLI::App& app, TrialOptions& options) {
  app.add_option("--log-call", options.callLogPath, "Append a line for every call to this file")
      ->type_name("FILE");
  app.add_option("--ready", options.readyPath, "Make this file once the service listens")
      ->type_name("FILE");
  app.add_flag("--end-with-input", options.endWithInput, "End when standard input ends");
  app.add_option("--socket", options.socketPath, "The pipe's socket in smbd's ncalrpc folder")
      ->type_name("PATH");
  app.add_flag("--require-rpc-auth", options.requireRpcAuth,
               "Refuse callers who do not prove themselves in the remote call, too");
  app.add_option("--ntlm-helper", options.ntlmHelper, "Samba's ntlm_auth, or a program like it")
      ->type_name("PROGRAM");
}

}  // namespace

std::optional<int> ParseTrialOptions(const std::vector<std::string>& arguments,
                                     TrialOptions& options, std::string& text) {
  CLI::App app(kDescription, "zlkrcmc-trial");
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.set_version_flag("--version", "zlkrcmc-trial " QVL_VERSION);
  AddAnswers(app, options);
  AddFailures(app, options);
  AddTransport(app, options);
  app.add_option("LOG.qvx", options.logPath, "The log")->required();
  app.footer(kFooter);
  try {
    std::vector<std::string> reversed = arguments;
    std::reverse(reversed.begin(), reversed.end());
    app.parse(reversed);
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream err;
    const bool asked = app.exit(error, out, err) == 0;
    text = asked ? out.str() : err.str();
    return asked ? 0 : kUsage;
  }
  return std::nullopt;
}

}  // namespace qvl
