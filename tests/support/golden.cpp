#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace qvl::testing {
namespace {

std::filesystem::path TestsFolder() {
  const char* const folder = std::getenv("QVL_TESTS_DIR");
  return folder != nullptr ? folder : QVL_TESTS_DIR;
}

// Takes assignments such as 0=1 3=0x10,2 6="CAB7" apart.
class AssignmentReader {
 public:
  AssignmentReader(std::string_view text, GoldenDescription& golden)
      : text_(text), golden_(golden) {}

  void ReadAll() {
    for (SkipBlanks(); !text_.empty(); SkipBlanks()) ReadOne();
  }

 private:
  void SkipBlanks() {
    while (!text_.empty() && text_.front() == ' ') text_.remove_prefix(1);
  }

  unsigned long ReadNumber() {
    std::size_t used = 0;
    const unsigned long number = std::stoul(std::string(text_), &used, 0);
    text_.remove_prefix(used);
    return number;
  }

  void Expect(char c) {
    ASSERT_TRUE(!text_.empty() && text_.front() == c) << golden_.where << ": expected " << c;
    text_.remove_prefix(1);
  }

  void Put(std::size_t offset, unsigned long value) {
    ASSERT_LT(offset, golden_.data.size()) << golden_.where;
    ASSERT_LE(value, 255U) << golden_.where;
    golden_.data[offset] = static_cast<std::uint8_t>(value);
  }

  void ReadOne() {
    if (text_.starts_with("fill=")) {
      text_.remove_prefix(5);
      golden_.data.fill(static_cast<std::uint8_t>(ReadNumber()));
      return;
    }
    std::size_t offset = ReadNumber();
    Expect('=');
    if (!text_.empty() && (text_.front() == '"' || text_.front() == '\'')) {
      ReadText(offset);
      return;
    }
    Put(offset, ReadNumber());
    while (!text_.empty() && text_.front() == ',') {
      text_.remove_prefix(1);
      Put(++offset, ReadNumber());
    }
  }

  void ReadText(std::size_t offset) {
    const char quote = text_.front();
    text_.remove_prefix(1);
    while (!text_.empty() && text_.front() != quote) Put(offset++, ReadCharacter());
    Expect(quote);
    if (quote == '"') Put(offset, 0);
  }

  unsigned long ReadCharacter() {
    const char c = text_.front();
    text_.remove_prefix(1);
    if (c != '\\' || text_.empty()) return static_cast<std::uint8_t>(c);
    const char escaped = text_.front();
    text_.remove_prefix(1);
    if (escaped == 'n') return '\n';
    if (escaped == 't') return '\t';
    if (escaped == 'x') {
      const unsigned long value = std::stoul(std::string(text_.substr(0, 2)), nullptr, 16);
      text_.remove_prefix(2);
      return value;
    }
    return static_cast<std::uint8_t>(escaped);
  }

  std::string_view text_;
  GoldenDescription& golden_;
};

std::string Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\\' && i + 1 < text.size()) {
      ++i;
      out += text[i] == 'n' ? '\n' : text[i];
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string Escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '\\') {
      out += "\\\\";
    } else if (c == '\n') {
      out += "\\n";
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace

std::vector<std::string> GoldenDescriptionFiles() {
  std::vector<std::string> files;
  for (const auto& entry :
       std::filesystem::directory_iterator(TestsFolder() / "golden" / "descriptions")) {
    files.push_back(entry.path().filename().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<GoldenDescription> ReadGoldenDescriptions(const std::string& file) {
  std::vector<GoldenDescription> goldens;
  std::istringstream lines(ReadTestFile("golden/descriptions/" + file));
  GoldenDescription golden;
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    if (line.empty() || line.front() == '#') continue;
    if (line.starts_with("= ") || line.starts_with("! ")) {
      golden.text = Unescaped(std::string_view(line).substr(2));
      golden.result = line.front() == '=' ? 1 : 0;
      goldens.push_back(golden);
      continue;
    }
    golden = GoldenDescription();
    golden.where = file + ":" + std::to_string(number);
    std::istringstream head(line);
    std::string colon;
    head >> golden.eventClass >> golden.code >> colon;
    EXPECT_EQ(colon, ":") << golden.where;
    const std::size_t at = line.find(':');
    AssignmentReader(std::string_view(line).substr(at + 1), golden).ReadAll();
  }
  return goldens;
}

std::string RewrittenGoldenDescriptions(
    const std::string& file,
    const std::function<std::string(const GoldenDescription&, int& result)>& describe) {
  const std::vector<GoldenDescription> goldens = ReadGoldenDescriptions(file);
  std::string out;
  std::size_t next = 0;
  std::istringstream lines(ReadTestFile("golden/descriptions/" + file));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("= ") || line.starts_with("! ")) {
      int result = 0;
      const std::string text = describe(goldens[next++], result);
      line = (result == 1 ? "= " : "! ") + Escaped(text);
    }
    out += line + "\n";
  }
  return out;
}

std::string ReadTestFile(const std::string& pathBelowTests) {
  std::ifstream stream(TestsFolder() / pathBelowTests, std::ios::binary);
  EXPECT_TRUE(stream.good()) << pathBelowTests;
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace qvl::testing
