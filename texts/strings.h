#ifndef QVL_TEXTS_STRINGS_H_
#define QVL_TEXTS_STRINGS_H_

#include <cstdint>
#include <span>
#include <string_view>

namespace qvl {

/// The languages of the string table.
enum class Language : std::uint8_t { kEnglish, kJapanese };

/// The numbers of the user-visible texts. A number never changes its meaning: translations,
/// help and support refer to it. Texts that never had a public number count from 62000.
enum class StringId : std::uint16_t {
  kApplicationTitle = 57344,
  kExportDialogTitle = 61205,
  kPrintTitle = 61207,
  kOpenDialogTitle = 61209,
  kAll = 61220,
  kColumnDescription = 61268,
  kColumnClass = 61269,
  kColumnSeverity = 61270,
  kColumnCount = 61271,
  kColumnUpdateTime = 61272,
  kColumnInitialTime = 61273,
  kLabelClass = 61274,
  kLabelSeverity = 61275,
  kLabelCount = 61276,
  kLabelUpdateTime = 61277,
  kLabelInitialTime = 61278,
  kSaveDialogTitle = 61287,
  kLogFileFilter = 61288,
  kExportFileFilter = 61289,
  kNotALogFile = 61290,
  kLogFileHeader = 61291,
  kInvalidFileName = 61292,
  kReportTitle = 61302,
  kExportTitle = 61310,
  kExportHeader = 61311,
  kReportPage = 61318,
  kPrintPage = 61333,

  kClassEmpty = 62000,
  kClassInternalTest = 62001,
  kClassMachineEnvironment = 62002,
  kClassMainMemory = 62003,
  kClassCacheMemory = 62004,
  kClassCpu = 62005,
  kClassHostBus = 62006,
  kClassEisaBus = 62007,
  kClassPciBus = 62008,
  kClassExpansionSlot = 62009,
  kClassPostMessages = 62010,
  kClassPowerSubsystem = 62011,
  kClassUps = 62012,
  kClassAutomaticServerRecovery = 62013,
  kClassOperatingSystem = 62014,
  kClassDiagnostics = 62015,
  kClassNetworkAdapter = 62017,
  kClassScsiSubsystem = 62018,
  kClassDriveArraySubsystem = 62019,
  kClassUnrecoverableSystemError = 62020,
  kClassSystemRevision = 62032,
  kClassMaintenance = 62033,
  kClassInfrastructureEnvironment = 62034,
  kClassKtb = 62037,

  kSeverityInformational = 62050,
  kSeverityRepaired = 62051,
  kSeverityCaution = 62052,
  kSeverityCritical = 62053,

  kSinceYesterday = 62060,
  kSinceLastWeek = 62061,
  kSinceLastMonth = 62062,
  kSinceLastSixMonths = 62063,
  kSinceLastYear = 62064,
};

/// One text in every language, UTF-8. `printf` conversions are the same in both.
struct StringRow {
  StringId id;
  std::string_view english;
  std::string_view japanese;
};

/// Every text, by ascending number.
std::span<const StringRow> AllStrings();

/// The text of a number in a language.
std::string_view GetString(StringId id, Language language);

/// The text of a number in the process's language.
std::string_view GetString(StringId id);

/// The process's language: English until the program sets the user's. Programs that write for
/// other programs leave it alone.
Language CurrentLanguage();
void SetCurrentLanguage(Language language);

}  // namespace qvl

#endif  // QVL_TEXTS_STRINGS_H_
