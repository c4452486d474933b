#include "viewer/model/message_window.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/files/file_fixtures.h"

namespace qvl {
namespace {

using testing::LanguageScope;

class LastMessage : public MessageWindow {
 public:
  UserMessage message;
  MessageAnswer Show(const UserMessage& shown) override {
    message = shown;
    return MessageAnswer::kCancel;
  }
};

TEST(ShowResourceMessage, ShowsATextByItsNumberUnderTheProgramsTitle) {
  LastMessage window;
  EXPECT_EQ(ShowResourceMessage(window, static_cast<StringId>(535)), MessageAnswer::kCancel);
  EXPECT_EQ(window.message.caption, "Korvath Quarvel Log Viewer");
  EXPECT_EQ(window.message.text, "Failed to mark one or more of the selected entries as repaired.");
  EXPECT_EQ(window.message.icon, MessageIcon::kExclamation);
  EXPECT_TRUE(window.message.yesLabel.empty());
  ShowResourceMessage(window, StringId::kNotFound, MessageIcon::kQuestion);
  EXPECT_EQ(window.message.icon, MessageIcon::kQuestion);
}

TEST(ShowStatusMessage, ShowsTheViewersTextOfAStatus) {
  LastMessage window;
  EXPECT_EQ(ShowStatusMessage(window, RM_E_NOT_ADMINISTRATOR), MessageAnswer::kCancel);
  EXPECT_EQ(window.message.text,
            "You do not have administrator privileges on this machine. You will be able to view, "
            "but not modify the information.");
  ShowStatusMessage(window, 0xE0000077);
  EXPECT_EQ(window.message.text, "Unknown error: 0xe0000077");
}

TEST(ShowStatusMessage, SpeaksTheUsersLanguage) {
  const LanguageScope language(Language::kJapanese);
  LastMessage window;
  ShowStatusMessage(window, RM_E_ALREADY_OPEN);
  EXPECT_EQ(window.message.caption, "Korvath Quarvel ログ ビューアー");
  EXPECT_EQ(window.message.text, "エラー: サーバーは既に開かれています。");
}

}  // namespace
}  // namespace qvl
