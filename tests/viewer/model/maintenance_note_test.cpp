#include "viewer/model/maintenance_note.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qvl {
namespace {

TEST(MaintenanceNoteLine, TurnsLineEndsIntoOneBlank) {
  EXPECT_EQ(MaintenanceNoteLine("a\r\n\r\nb"), "a b");
  EXPECT_EQ(MaintenanceNoteLine("a \r\nb"), "a b");
  EXPECT_EQ(MaintenanceNoteLine("a\r\n b"), "a  b");
  EXPECT_EQ(MaintenanceNoteLine("a\rb\nc"), "a bc");
}

TEST(MaintenanceNoteLine, LosesBlanksAtBothEnds) {
  EXPECT_EQ(MaintenanceNoteLine(" \rX"), "X");
  EXPECT_EQ(MaintenanceNoteLine("\r\nX\r\n"), "X");
  EXPECT_EQ(MaintenanceNoteLine("  two  words  "), "two  words");
  EXPECT_EQ(MaintenanceNoteLine("\tX"), "\tX");
  EXPECT_EQ(MaintenanceNoteLine(" \r\n "), "");
  EXPECT_EQ(MaintenanceNoteLine(""), "");
}

class Refusals : public MessageWindow {
 public:
  std::vector<std::string> texts;
  MessageAnswer Show(const UserMessage& message) override {
    EXPECT_EQ(message.icon, MessageIcon::kExclamation);
    texts.push_back(message.text);
    return MessageAnswer::kOk;
  }
};

TEST(MaintenanceNote, IsRefusedWithoutACharacter) {
  for (const char* const typed : {"", "   ", "\r\n \r\n"}) {
    Refusals refusals;
    EXPECT_FALSE(AcceptMaintenanceNote(refusals, typed));
    EXPECT_EQ(refusals.texts,
              std::vector<std::string>{"Enter the text for the maintenance note. The text must be "
                                       "between 1 and 227 characters in length."});
  }
}

TEST(MaintenanceNote, TakesAsManyBytesAsTheServiceDoes) {
  Refusals refusals;
  EXPECT_TRUE(AcceptMaintenanceNote(refusals, "x"));
  EXPECT_TRUE(AcceptMaintenanceNote(refusals, " " + std::string(227, 'x') + "\r\n"));
  EXPECT_TRUE(refusals.texts.empty());
  EXPECT_FALSE(AcceptMaintenanceNote(refusals, std::string(228, 'x')));
  std::string umlauts;
  for (int i = 0; i < 114; ++i) umlauts += "\xC3\xBC";
  EXPECT_FALSE(AcceptMaintenanceNote(refusals, umlauts));
  EXPECT_EQ(refusals.texts.size(), 2U);
}

}  // namespace
}  // namespace qvl
