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
  kDocumentType = 128,
  kProgressMarking = 509,
  kProgressClearing = 510,
  kProgressLoading = 512,
  kProgressConnecting = 513,
  kStatusAlreadyOpen = 515,
  kStatusNotOpen = 516,
  kStatusNoDriver = 522,
  kStatusAccessDenied = 527,
  kStatusServerUnavailable = 528,
  kStatusUnknown = 530,
  kStatusNotAdministrator = 531,
  kMarkFailed = 535,
  kNoLog = 536,
  kClearFailed = 538,
  kStatusUnknownInterface = 539,
  kNotMarked = 540,
  kApplicationTitle = 57344,
  kBrowsePrompt = 61204,
  kExportDialogTitle = 61205,
  kPrintTitle = 61207,
  kOpenDialogTitle = 61209,
  kAll = 61220,
  kClearButton = 61254,
  kClearSaveButton = 61259,
  kClearExportButton = 61260,
  kClearPrintButton = 61261,
  kClearSaveText = 61262,
  kClearExportText = 61263,
  kClearPrintText = 61264,
  kClearQuestion = 61265,
  kClearWarning = 61266,
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
  kNoteFailed = 61297,
  kNotePrompt = 61299,
  kReportTitle = 61302,
  kBatchExecuting = 61303,
  kBatchConnecting = 61304,
  kBatchConnected = 61305,
  kBatchNotAdministrator = 61306,
  kBatchNoLog = 61307,
  kBatchSaved = 61308,
  kBatchSaveFailed = 61309,
  kExportTitle = 61310,
  kExportHeader = 61311,
  kBatchExported = 61312,
  kBatchExportFailed = 61313,
  kReportPage = 61318,
  kBatchCleared = 61319,
  kBatchClearFailed = 61320,
  kBatchNoteTooLong = 61323,
  kBatchNoteEmpty = 61324,
  kBatchNoteWritten = 61325,
  kBatchNoteFailed = 61326,
  kBatchUnknownCommand = 61327,
  kBatchDidNothing = 61328,
  kBatchClearRefused = 61329,
  kBatchFinished = 61330,
  kBatchHead = 61331,
  kBatchNoMachine = 61332,
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

  kBatchReportOpenFailed = 62070,
  kBatchReportWritten = 62071,
  kBatchNoPrinter = 62072,
  kBatchPrinted = 62073,
  kBatchReportWriteFailed = 62074,
  kBatchNumberFellBack = 62075,
  kBatchClearOfUnread = 62076,
  kBatchPrintFailed = 62077,

  kFilterPrompt = 62080,
  kFilterClass = 62081,
  kFilterSeverity = 62082,
  kFilterUpdateTime = 62083,
  kFilterInitialTime = 62084,
  kFilterReset = 62085,
  kFiltered = 62086,
  kNotFiltered = 62087,
  kStatusCounts = 62088,
  kMachineLabel = 62089,
  kBrowseButton = 62090,
  kRefreshButton = 62091,
  kOk = 62092,
  kCancel = 62093,
  kClose = 62094,
  kEntriesRead = 62095,
  kSaveFailed = 62096,
  kTailRemains = 62097,
  kReplaceFile = 62098,
  kSaveOver = 62099,

  kMenuLog = 62100,
  kMenuView = 62101,
  kMenuHelp = 62102,
  kMenuBrowse = 62103,
  kMenuOpen = 62104,
  kMenuSave = 62105,
  kMenuExport = 62106,
  kMenuPreview = 62107,
  kMenuPrint = 62108,
  kMenuClear = 62109,
  kMenuMarkRepaired = 62110,
  kMenuNote = 62111,
  kMenuExit = 62112,
  kMenuAllEntries = 62113,
  kMenuFilter = 62114,
  kMenuRefresh = 62115,
  kMenuCopy = 62116,
  kMenuSelectAll = 62117,
  kMenuFind = 62118,
  kMenuFindNext = 62119,
  kMenuFindPrevious = 62120,
  kMenuDetails = 62121,
  kMenuHistogram = 62122,
  kMenuHelpTopics = 62123,
  kMenuAbout = 62124,
  kContextMarkRepaired = 62125,

  kReadEndedInFile = 62140,
  kOutOfMemory = 62141,
  kNotFound = 62142,
  kFindLabel = 62143,
  kFindNextButton = 62144,
  kFindPreviousButton = 62145,
  kDetailCode = 62146,
  kDetailEntryNumber = 62147,
  kDetailData = 62148,
  kBrowserSearching = 62149,
  kBrowserEmpty = 62150,
  kListName = 62151,
  kDetailsName = 62152,
  kHistogramName = 62153,
  kHistogramBar = 62154,
  kHistogramHint = 62155,
  kHelpMissing = 62156,
  kPrintFailed = 62157,
  kMachineName = 62158,
  kYes = 62159,
  kNo = 62160,
  kOverwriteFile = 62161,
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
