#include "access/status_texts.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/system_error_text.h"
#include "texts/strings.h"

namespace qvl {
namespace {

struct StatusRow {
  RemoteStatus status;
  const char* text;
};

// The rows that batch mode and the viewer share.
constexpr StatusRow kRows[] = {
    {0xE0000000, "Error: The server is already open."                                     },
    {0xE0000001, "Error: The server is not open."                                         },
    {0xE0000002, "Error: The System Management driver is not detected."                   },
    {5,          "You don't have the required privileges to access the requested machine."},
    {1717,
     "The requested machine is running an incompatible version of the Korvath Remote Monitor "
     "service."                                                                           },
    {1722,
     "The requested machine is not running the Korvath Remote Monitor service, or it can't be "
     "found on the network."                                                              },
    {0xE0000003, "Unknown error: 0xe0000003"                                              },
    {0xE0000005, "Unknown error: 0xe0000005"                                              },
};

TEST(StatusText, IsTheSameForTheViewerAndForBatchMode) {
  for (const StatusRow& row : kRows) {
    EXPECT_EQ(StatusText(row.status, StatusReader::kViewer), row.text) << row.status;
    EXPECT_EQ(StatusText(row.status, StatusReader::kBatch), row.text) << row.status;
  }
}

TEST(StatusText, KnowsAMissingAdministratorOnlyInTheViewer) {
  EXPECT_EQ(StatusText(RM_E_NOT_ADMINISTRATOR, StatusReader::kViewer),
            "You do not have administrator privileges on this machine. You will be able to view, "
            "but not modify the information.");
  EXPECT_EQ(StatusText(RM_E_NOT_ADMINISTRATOR, StatusReader::kBatch), "Unknown error: 0xe0000004");
}

TEST(StatusText, OfOtherCodesIsTheSystems) {
  const std::string systemText = TextOfErrorCode(kCallFailed);
  EXPECT_FALSE(systemText.empty());
  EXPECT_EQ(StatusText(kCallFailed, StatusReader::kViewer), systemText);
  EXPECT_EQ(StatusText(kCallFailed, StatusReader::kBatch), systemText);
}

TEST(StatusText, WritesAnUnknownStatusWithAtLeastFourDigits) {
  EXPECT_EQ(StatusText(0xFFFE, StatusReader::kBatch), "Unknown error: 0xfffe");
}

TEST(StatusText, SpeaksTheProcessesLanguage) {
  SetCurrentLanguage(Language::kJapanese);
  EXPECT_EQ(StatusText(RM_E_NOT_OPEN, StatusReader::kViewer),
            "エラー: サーバーは開かれていません。");
  EXPECT_EQ(StatusText(0xE0000003, StatusReader::kBatch), "不明なエラー: 0xe0000003");
  SetCurrentLanguage(Language::kEnglish);
}

}  // namespace
}  // namespace qvl
