#include "texts/strings.h"

#include <algorithm>
#include <array>

namespace qvl {
namespace {

using enum StringId;

// The magic of a log file and the header line of an export are the same in every language:
// files and spreadsheets are exchanged between users of both.
constexpr StringRow kStrings[] = {
    {kApplicationTitle,               "Korvath Quarvel Log Viewer",                                            "Korvath Quarvel ログ ビューアー"                                                                                              },
    {kExportDialogTitle,              "Export",                                                                "エクスポート"                                                                                                                  },
    {kPrintTitle,                     "Korvath Quarvel Log",                                                   "Korvath Quarvel ログ"                                                                                                              },
    {kOpenDialogTitle,                "Open",                                                                  "開く"                                                                                                                              },
    {kAll,                            "(All)",                                                                 "(すべて)"                                                                                                                         },
    {kColumnDescription,              "Description",                                                           "説明"                                                                                                                              },
    {kColumnClass,                    "Class",                                                                 "クラス"                                                                                                                           },
    {kColumnSeverity,                 "Severity",                                                              "重大度"                                                                                                                           },
    {kColumnCount,                    "Count",                                                                 "回数"                                                                                                                              },
    {kColumnUpdateTime,               "Update Time",                                                           "更新日時"                                                                                                                        },
    {kColumnInitialTime,              "Initial Time",                                                          "初回日時"                                                                                                                        },
    {kLabelClass,                     "    Class          : ",                                                 "    クラス         : "                                                                                                            },
    {kLabelSeverity,                  "    Severity       : ",                                                 "    重大度         : "                                                                                                            },
    {kLabelCount,                     "    Count          : ",                                                 "    回数           : "                                                                                                             },
    {kLabelUpdateTime,                "    Update Time    : ",                                                 "    更新日時       : "                                                                                                           },
    {kLabelInitialTime,               "    Initial Time   : ",                                                 "    初回日時       : "                                                                                                           },
    {kSaveDialogTitle,                "Save",                                                                  "保存"                                                                                                                              },
    {kLogFileFilter,                  "Quarvel Log files (*.qvx)|*.qvx||",                                     "Quarvel ログ ファイル (*.qvx)|*.qvx||"                                                                                         },
    {kExportFileFilter,               "Comma Delimited (*.csv) |*.csv|All Files (*.*) |*.*||",
     "カンマ区切り (*.csv) |*.csv|すべてのファイル (*.*) |*.*||"                                                                                                                                                                       },
    {kNotALogFile,
     "You have attempted to open a file that is not recognized by the viewer. "
     "Please try a different file.",                                                                           "開こうとしたファイルは、このビューアーで認識できません。別のファイルを指定してください。"},
    {kLogFileHeader,                  "Zelkor QVX Log v1.0",                                                   "Zelkor QVX Log v1.0"                                                                                                                 },
    {kInvalidFileName,                "You have specified an invalid file name. Please try a different file.",
     "指定したファイル名が正しくありません。別のファイルを指定してください。"                                                                                                                                     },
    {kReportTitle,                    "Korvath Quarvel Log Viewer",                                            "Korvath Quarvel ログ ビューアー"                                                                                              },
    {kExportTitle,                    "Korvath Quarvel Log Viewer:  ",                                         "Korvath Quarvel ログ ビューアー:  "                                                                                           },
    {kExportHeader,                   "Description,Class,Code,Severity,Count,Update Time,Initial Time",
     "Description,Class,Code,Severity,Count,Update Time,Initial Time"                                                                                                                                                                                },
    {kReportPage,                     "Page %d",                                                               "%d ページ"                                                                                                                        },
    {kPrintPage,                      "Page %d",                                                               "%d ページ"                                                                                                                        },

    {kClassEmpty,                     "Empty",                                                                 "空"                                                                                                                                 },
    {kClassInternalTest,              "Internal Test",                                                         "内部テスト"                                                                                                                     },
    {kClassMachineEnvironment,        "Machine Environment",                                                   "マシン環境"                                                                                                                     },
    {kClassMainMemory,                "Main Memory",                                                           "メイン メモリ"                                                                                                                 },
    {kClassCacheMemory,               "Cache Memory",                                                          "キャッシュ メモリ"                                                                                                           },
    {kClassCpu,                       "CPU",                                                                   "CPU"                                                                                                                                 },
    {kClassHostBus,                   "Host Bus",                                                              "ホスト バス"                                                                                                                    },
    {kClassEisaBus,                   "EISA Bus",                                                              "EISA バス"                                                                                                                         },
    {kClassPciBus,                    "PCI Bus",                                                               "PCI バス"                                                                                                                          },
    {kClassExpansionSlot,             "Expansion Slot",                                                        "拡張スロット"                                                                                                                  },
    {kClassPostMessages,              "POST Messages",                                                         "POST メッセージ"                                                                                                                },
    {kClassPowerSubsystem,            "Power Subsystem",                                                       "電源サブシステム"                                                                                                            },
    {kClassUps,                       "UPS",                                                                   "UPS"                                                                                                                                 },
    {kClassAutomaticServerRecovery,   "Automatic Server Recovery",                                             "自動サーバー復旧"                                                                                                            },
    {kClassOperatingSystem,           "Operating System",                                                      "オペレーティング システム"                                                                                               },
    {kClassDiagnostics,               "Diagnostics",                                                           "診断"                                                                                                                              },
    {kClassNetworkAdapter,            "Network Adapter",                                                       "ネットワーク アダプター"                                                                                                  },
    {kClassScsiSubsystem,             "SCSI Subsystem",                                                        "SCSI サブシステム"                                                                                                             },
    {kClassDriveArraySubsystem,       "Drive Array Subsystem",                                                 "ドライブ アレイ サブシステム"                                                                                           },
    {kClassUnrecoverableSystemError,  "Unrecoverable System Error",                                            "回復不能なシステム エラー"                                                                                               },
    {kClassSystemRevision,            "System Revision",                                                       "システム リビジョン"                                                                                                        },
    {kClassMaintenance,               "Maintenance",                                                           "メンテナンス"                                                                                                                  },
    {kClassInfrastructureEnvironment, "Infrastructure Environment",                                            "インフラストラクチャ環境"                                                                                                },
    {kClassKtb,                       "KTB",                                                                   "KTB"                                                                                                                                 },

    {kSeverityInformational,          "Informational",                                                         "情報"                                                                                                                              },
    {kSeverityRepaired,               "Repaired",                                                              "修復済み"                                                                                                                        },
    {kSeverityCaution,                "Caution",                                                               "注意"                                                                                                                              },
    {kSeverityCritical,               "Critical",                                                              "重大"                                                                                                                              },

    {kSinceYesterday,                 "Since Yesterday",                                                       "昨日以降"                                                                                                                        },
    {kSinceLastWeek,                  "Since Last Week",                                                       "先週以降"                                                                                                                        },
    {kSinceLastMonth,                 "Since Last Month",                                                      "先月以降"                                                                                                                        },
    {kSinceLastSixMonths,             "Since Last 6 Months",                                                   "過去 6 か月以降"                                                                                                               },
    {kSinceLastYear,                  "Since Last Year",                                                       "昨年以降"                                                                                                                        },
};

constexpr bool StrictlyAscendingIds() {
  for (std::size_t i = 1; i < std::size(kStrings); ++i) {
    if (kStrings[i - 1].id >= kStrings[i].id) return false;
  }
  return true;
}
static_assert(StrictlyAscendingIds());

Language currentLanguage = Language::kEnglish;

}  // namespace

std::span<const StringRow> AllStrings() {
  return kStrings;
}

std::string_view GetString(StringId id, Language language) {
  const StringRow* const row = std::lower_bound(
      std::begin(kStrings), std::end(kStrings), id,
      [](const StringRow& candidate, StringId wanted) { return candidate.id < wanted; });
  if (row == std::end(kStrings) || row->id != id) return {};
  return language == Language::kJapanese ? row->japanese : row->english;
}

std::string_view GetString(StringId id) {
  return GetString(id, currentLanguage);
}

Language CurrentLanguage() {
  return currentLanguage;
}
void SetCurrentLanguage(Language language) {
  currentLanguage = language;
}

}  // namespace qvl
