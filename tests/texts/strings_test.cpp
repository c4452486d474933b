#include "texts/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entries/event_class.h"
#include "entries/severity.h"
#include "texts/filled_text.h"

namespace qvl {
namespace {

int NumberOf(StringId id) {
  return static_cast<int>(id);
}

std::string_view English(int number) {
  return GetString(static_cast<StringId>(number), Language::kEnglish);
}

// The conversions of a printf text, in their order: "%d", "%s". A doubled percent sign is none.
std::vector<std::string> Conversions(std::string_view text) {
  std::vector<std::string> found;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') continue;
    std::string conversion = "%";
    while (++i < text.size()) {
      const char c = text[i];
      conversion += c;
      if (c == '%' || std::isalpha(static_cast<unsigned char>(c)) != 0) break;
    }
    if (conversion != "%%") found.push_back(conversion);
  }
  return found;
}

TEST(Strings, HaveUniqueAscendingNumbers) {
  int previous = 0;
  for (const StringRow& row : AllStrings()) {
    EXPECT_GT(NumberOf(row.id), previous);
    previous = NumberOf(row.id);
  }
}

TEST(Strings, AreFoundByTheirNumberInBothLanguages) {
  ASSERT_FALSE(AllStrings().empty());
  for (const StringRow& row : AllStrings()) {
    EXPECT_EQ(GetString(row.id, Language::kEnglish), row.english) << NumberOf(row.id);
    EXPECT_EQ(GetString(row.id, Language::kJapanese), row.japanese) << NumberOf(row.id);
  }
}

TEST(Strings, AreEmptyForANumberThatIsNoText) {
  for (const int number : {0, 1, 57343, 57345, 61206, 62016, 65535}) {
    EXPECT_TRUE(English(number).empty()) << number;
    EXPECT_TRUE(GetString(static_cast<StringId>(number), Language::kJapanese).empty()) << number;
  }
}

TEST(Strings, AreEmptyInNoLanguage) {
  for (const StringRow& row : AllStrings()) {
    EXPECT_FALSE(row.english.empty()) << NumberOf(row.id);
    EXPECT_FALSE(row.japanese.empty()) << NumberOf(row.id);
  }
}

TEST(Strings, HaveTheSameConversionsInBothLanguages) {
  for (const StringRow& row : AllStrings()) {
    EXPECT_EQ(Conversions(row.english), Conversions(row.japanese)) << NumberOf(row.id);
  }
  EXPECT_EQ(Conversions(English(61318)), std::vector<std::string>{"%d"});
}

TEST(Strings, HaveTheSameNumberOfFilterPartsInBothLanguages) {
  for (const StringRow& row : AllStrings()) {
    EXPECT_EQ(std::count(row.english.begin(), row.english.end(), '|'),
              std::count(row.japanese.begin(), row.japanese.end(), '|'))
        << NumberOf(row.id);
  }
}

// The patterns of a file filter: every second part.
std::vector<std::string> FilterPatterns(std::string_view filter) {
  std::vector<std::string> patterns;
  bool pattern = false;
  for (std::size_t bar = filter.find('|'); bar != std::string_view::npos; bar = filter.find('|')) {
    if (pattern) patterns.emplace_back(filter.substr(0, bar));
    pattern = !pattern;
    filter.remove_prefix(bar + 1);
  }
  return patterns;
}

TEST(Strings, HaveTheSameFilterPatternsInBothLanguages) {
  for (const StringId id : {StringId::kLogFileFilter, StringId::kExportFileFilter}) {
    EXPECT_EQ(FilterPatterns(GetString(id, Language::kEnglish)),
              FilterPatterns(GetString(id, Language::kJapanese)));
  }
  EXPECT_EQ(FilterPatterns(English(61288)), std::vector<std::string>{"*.qvx"});
  EXPECT_EQ(FilterPatterns(English(61289)), (std::vector<std::string>{"*.csv", "*.*"}));
}

TEST(Strings, GiveFilesTheSameHeadersInBothLanguages) {
  EXPECT_EQ(GetString(StringId::kLogFileHeader, Language::kJapanese), "Zelkor QVX Log v1.0");
  EXPECT_EQ(GetString(StringId::kLogFileHeader, Language::kEnglish), "Zelkor QVX Log v1.0");
  EXPECT_EQ(English(61291).size(), 19U);
  EXPECT_EQ(GetString(StringId::kExportHeader, Language::kJapanese),
            "Description,Class,Code,Severity,Count,Update Time,Initial Time");
  EXPECT_EQ(GetString(StringId::kExportHeader, Language::kEnglish),
            "Description,Class,Code,Severity,Count,Update Time,Initial Time");
}

// Translations, help and support know these texts by their numbers.
TEST(Strings, HaveTheirPublicNumbersAndEnglishTexts) {
  const std::vector<std::pair<int, std::string_view>> texts = {
      {57344, "Korvath Quarvel Log Viewer"                                           },
      {61205, "Export"                                                               },
      {61207, "Korvath Quarvel Log"                                                  },
      {61209, "Open"                                                                 },
      {61220, "(All)"                                                                },
      {61268, "Description"                                                          },
      {61269, "Class"                                                                },
      {61270, "Severity"                                                             },
      {61271, "Count"                                                                },
      {61272, "Update Time"                                                          },
      {61273, "Initial Time"                                                         },
      {61274, "    Class          : "                                                },
      {61275, "    Severity       : "                                                },
      {61276, "    Count          : "                                                },
      {61277, "    Update Time    : "                                                },
      {61278, "    Initial Time   : "                                                },
      {61287, "Save"                                                                 },
      {61288, "Quarvel Log files (*.qvx)|*.qvx||"                                    },
      {61289, "Comma Delimited (*.csv) |*.csv|All Files (*.*) |*.*||"                },
      {61290,
       "You have attempted to open a file that is not recognized by the viewer. Please try a "
       "different file."                                                             },
      {61291, "Zelkor QVX Log v1.0"                                                  },
      {61292, "You have specified an invalid file name. Please try a different file."},
      {61302, "Korvath Quarvel Log Viewer"                                           },
      {61310, "Korvath Quarvel Log Viewer:  "                                        },
      {61311, "Description,Class,Code,Severity,Count,Update Time,Initial Time"       },
      {61318, "Page %d"                                                              },
      {61333, "Page %d"                                                              },
  };
  for (const auto& [number, text] : texts) EXPECT_EQ(English(number), text) << number;
}

TEST(Strings, HaveTheWindowsNumbersAndEnglishTexts) {
  const std::vector<std::pair<int, std::string_view>> texts = {
      {509,   "Attempting to mark the selected events as repaired..."                       },
      {510,   "Attempting to clear the log..."                                              },
      {512,   "Loading data..."                                                             },
      {513,   "Connecting to %s"                                                            },
      {535,   "Failed to mark one or more of the selected entries as repaired."             },
      {536,
       "Either the driver does not support the Quarvel Log or there is no Quarvel Log on this "
       "system"                                                                             },
      {538,
       "The clear log command failed. The server may be temporarily inaccessible due to network "
       "problems, or the Remote Monitor Service may have been suspended."                   },
      {540,
       "One or more entries were not marked as repaired because they were already tagged as "
       "repaired, or were informational entries that did not need to be marked as repaired."},
      {61204, "Select a machine from the list below."                                       },
      {61254, "&Clear"                                                                      },
      {61259, "&Save..."                                                                    },
      {61260, "&Export..."                                                                  },
      {61261, "&Print..."                                                                   },
      {61262,
       "Save the log entries to a .QVX file. The file can be read into the viewer at a later "
       "time."                                                                              },
      {61263, "Export the log entries to a comma separated file."                           },
      {61264,
       "Print the displayed log entries. Note: filtering affects which log entries will be "
       "printed."                                                                           },
      {61265, "If you still want to clear the log on this machine, select the Clear button."},
      {61266,
       "You have chosen to clear the Quarvel Log on the currently selected machine. This will "
       "permanently remove all entries from the log. You can save the entries by selecting one of "
       "the following options:"                                                             },
      {61297, "Unable to log the maintenance note to the Quarvel Log."                      },
      {61299,
       "Enter the text for the maintenance note. The text must be between 1 and 227 characters in "
       "length."                                                                            },
      {128,
       "Korvath Quarvel Log Viewer\n\nZlkqvxv\nKorvath Quarvel Logs (*.qvx)\n.qvx\n"
       "Zlkqvxv.Document\nZlkqvxv Document"                                                 },
  };
  for (const auto& [number, text] : texts) EXPECT_EQ(English(number), text) << number;
}

TEST(Strings, NameTheFilterDialogAndTheStatusBar) {
  EXPECT_EQ(GetString(StringId::kFilterPrompt, Language::kEnglish),
            "Select the value for each category by which you want the events to be filtered.");
  EXPECT_EQ(GetString(StringId::kFilterClass, Language::kEnglish), "&Class:");
  EXPECT_EQ(GetString(StringId::kFilterSeverity, Language::kEnglish), "&Severity:");
  EXPECT_EQ(GetString(StringId::kFilterUpdateTime, Language::kEnglish), "&Update Time:");
  EXPECT_EQ(GetString(StringId::kFilterInitialTime, Language::kEnglish), "&Initial Time:");
  EXPECT_EQ(GetString(StringId::kFilterReset, Language::kEnglish), "&Reset");
  EXPECT_EQ(GetString(StringId::kFiltered, Language::kEnglish), "Filtered");
  EXPECT_EQ(GetString(StringId::kNotFiltered, Language::kEnglish), "Not Filtered");
}

// Seven fields: only what a user reads differs.
TEST(Strings, RegisterTheSameFileTypeInBothLanguages) {
  const auto fields = [](Language language) {
    std::vector<std::string_view> parts;
    std::string_view text = GetString(StringId::kDocumentType, language);
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
      parts.push_back(text.substr(0, end));
      text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
  };
  const std::vector<std::string_view> english = fields(Language::kEnglish);
  const std::vector<std::string_view> japanese = fields(Language::kJapanese);
  ASSERT_EQ(english.size(), 7U);
  ASSERT_EQ(japanese.size(), 7U);
  for (const std::size_t same : {1U, 2U, 4U, 5U, 6U}) EXPECT_EQ(english[same], japanese[same]);
}

TEST(Strings, MarkAtMostOneMnemonic) {
  for (const StringRow& row : AllStrings()) {
    for (const std::string_view text : {row.english, row.japanese}) {
      EXPECT_LE(std::count(text.begin(), text.end(), '&'), 1) << NumberOf(row.id);
    }
    EXPECT_EQ(row.english.find('&') == std::string_view::npos,
              row.japanese.find('&') == std::string_view::npos)
        << NumberOf(row.id);
  }
}

TEST(FilledText, PutsTheArgumentsInOrder) {
  EXPECT_EQ(FilledText(StringId::kProgressConnecting, {"SRV1"}), "Connecting to SRV1");
  EXPECT_EQ(FilledText(StringId::kStatusCounts, {"1", "2", "3"}), "1 shown, 2 selected, 3 in all");
  EXPECT_EQ(FilledText(StringId::kNotFiltered), "Not Filtered");
}

TEST(FilledText, TakesNoArgumentForAConversion) {
  EXPECT_EQ(FilledText(StringId::kTailRemains, {"%s%s%n", "2"}).find("The file %s%s%n is"), 0U);
  EXPECT_EQ(FilledText(StringId::kProgressConnecting, {"%", "left over"}), "Connecting to %");
  EXPECT_EQ(FilledText(StringId::kProgressConnecting), "Connecting to %s");
}

TEST(Strings, NameTheTimeFilters) {
  EXPECT_EQ(GetString(StringId::kSinceYesterday, Language::kEnglish), "Since Yesterday");
  EXPECT_EQ(GetString(StringId::kSinceLastWeek, Language::kEnglish), "Since Last Week");
  EXPECT_EQ(GetString(StringId::kSinceLastMonth, Language::kEnglish), "Since Last Month");
  EXPECT_EQ(GetString(StringId::kSinceLastSixMonths, Language::kEnglish), "Since Last 6 Months");
  EXPECT_EQ(GetString(StringId::kSinceLastYear, Language::kEnglish), "Since Last Year");
}

TEST(Strings, AreEnglishUntilTheProcessLanguageIsSet) {
  EXPECT_EQ(CurrentLanguage(), Language::kEnglish);
  EXPECT_EQ(GetString(StringId::kAll), "(All)");
  SetCurrentLanguage(Language::kJapanese);
  EXPECT_EQ(CurrentLanguage(), Language::kJapanese);
  EXPECT_EQ(GetString(StringId::kAll), "(すべて)");
  SetCurrentLanguage(Language::kEnglish);
  EXPECT_EQ(GetString(StringId::kAll), "(All)");
}

TEST(EventClassName, NamesExactlyTheClassesOfTheList) {
  const std::map<int, std::string_view> names = {
      {0,  "Empty"                     },
      {1,  "Internal Test"             },
      {2,  "Machine Environment"       },
      {3,  "Main Memory"               },
      {4,  "Cache Memory"              },
      {5,  "CPU"                       },
      {6,  "Host Bus"                  },
      {7,  "EISA Bus"                  },
      {8,  "PCI Bus"                   },
      {9,  "Expansion Slot"            },
      {10, "POST Messages"             },
      {11, "Power Subsystem"           },
      {12, "UPS"                       },
      {13, "Automatic Server Recovery" },
      {14, "Operating System"          },
      {15, "Diagnostics"               },
      {17, "Network Adapter"           },
      {18, "SCSI Subsystem"            },
      {19, "Drive Array Subsystem"     },
      {20, "Unrecoverable System Error"},
      {32, "System Revision"           },
      {33, "Maintenance"               },
      {34, "Infrastructure Environment"},
      {37, "KTB"                       },
  };
  for (int number = 0; number <= 65535; ++number) {
    const auto eventClass = static_cast<std::uint16_t>(number);
    const auto name = names.find(number);
    const std::string_view expected = name == names.end() ? std::string_view() : name->second;
    ASSERT_EQ(EventClassName(eventClass, Language::kEnglish), expected) << number;
    ASSERT_EQ(EventClassName(eventClass, Language::kJapanese).empty(), expected.empty()) << number;
  }
}

// The filter compares names, so no two classes may share one in either language.
TEST(EventClassName, DiffersBetweenAllClasses) {
  for (const Language language : {Language::kEnglish, Language::kJapanese}) {
    std::map<std::string_view, int> seen;
    for (std::uint16_t eventClass = 0; eventClass < kEventClassEnd; ++eventClass) {
      const std::string_view name = EventClassName(eventClass, language);
      if (name.empty()) continue;
      EXPECT_TRUE(seen.emplace(name, eventClass).second) << name;
    }
  }
}

TEST(SeverityName, NamesExactlyTheKnownCodes) {
  const std::map<int, std::string_view> names = {
      {2,  "Informational"},
      {3,  "Informational"},
      {6,  "Repaired"     },
      {9,  "Caution"      },
      {15, "Critical"     },
  };
  for (int number = 0; number <= 255; ++number) {
    const auto severity = static_cast<std::uint8_t>(number);
    const auto name = names.find(number);
    const std::string_view expected = name == names.end() ? std::string_view() : name->second;
    EXPECT_EQ(SeverityName(severity, Language::kEnglish), expected) << number;
    EXPECT_EQ(SeverityName(severity, Language::kJapanese).empty(), expected.empty()) << number;
  }
  EXPECT_EQ(SeverityName(2, Language::kJapanese), SeverityName(3, Language::kJapanese));
}

}  // namespace
}  // namespace qvl
