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

TEST(WithinNoteLimit, RefusesWhatIsTypedIntoAFullField) {
  const std::wstring full = std::wstring(100, L'a') + std::wstring(127, L'b');
  std::size_t caret = 101;
  std::wstring typed = full;
  typed.insert(100, L"x");
  EXPECT_EQ(WithinNoteLimit(typed, caret), full);
  EXPECT_EQ(caret, 100U);
  caret = 228;
  EXPECT_EQ(WithinNoteLimit(full + L"x", caret), full);
  EXPECT_EQ(caret, 227U);
}

TEST(WithinNoteLimit, TakesWhatFitsOfAPastedText) {
  std::size_t caret = 10;
  const std::wstring text = L"0123456789" + std::wstring(219, L'b');
  EXPECT_EQ(WithinNoteLimit(text, caret), L"01234567" + std::wstring(219, L'b'));
  EXPECT_EQ(caret, 8U);
}

TEST(WithinNoteLimit, LeavesWhatFitsAlone) {
  std::size_t caret = 3;
  EXPECT_EQ(WithinNoteLimit(std::wstring(227, L'b'), caret).size(), 227U);
  EXPECT_EQ(caret, 3U);
  caret = 0;  // of a toolkit that does not tell
  EXPECT_EQ(WithinNoteLimit(std::wstring(230, L'b'), caret).size(), 227U);
  EXPECT_EQ(caret, 0U);
}

}  // namespace
}  // namespace qvl
