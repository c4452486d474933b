#include "viewer/ui/help_line_breaks.h"

#include <pango/pango.h>
#include <wx/html/htmlcell.h>
#include <wx/html/htmlfilt.h>
#include <wx/html/htmlproc.h>
#include <wx/html/htmlwin.h>
#include <wx/html/htmprint.h>
#include <wx/html/winpars.h>
#include <wx/sstream.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "viewer/ui/wx_text.h"

namespace qvl {
namespace {

// Scripts below it, Latin and its like, have blanks between their words.
constexpr gunichar kFirstEastAsian = 0x2E80;

// A text without tags, with a tag where a line may break.
std::string WithBreaks(std::string_view text) {
  const auto length =
      static_cast<std::size_t>(g_utf8_strlen(text.data(), static_cast<gssize>(text.size())));
  std::vector<PangoLogAttr> places(length + 1);
  pango_get_log_attrs(text.data(), static_cast<int>(text.size()), -1,
                      pango_language_from_string("ja"), places.data(),
                      static_cast<int>(places.size()));
  std::string result;
  gunichar before = 0;
  const char* at = text.data();
  for (std::size_t i = 0; i < length; ++i) {
    const gunichar letter = g_utf8_get_char(at);
    const bool eastAsian = letter >= kFirstEastAsian || before >= kFirstEastAsian;
    if (i > 0 && eastAsian && places[i].is_line_break != 0 && !g_unichar_isspace(before)) {
      result += "<wbr>";
    }
    const char* const next = g_utf8_next_char(at);
    result.append(at, next);
    at = next;
    before = letter;
  }
  return result;
}

// What is to be typed, and names and headings in tables.
bool StaysWhole(std::string_view tag) {
  return tag == "<tt>" || tag == "<th>" || tag.starts_with("<a name=");
}

// A page's head is left alone: its title is taken as it stands.
wxString PageWithBreaks(const wxString& page) {
  const std::string source = FromWx(page);
  std::size_t at = source.find("<body");
  if (at == std::string::npos) return page;
  std::string result = source.substr(0, at);
  std::string_view tag;
  while (at < source.size()) {
    const bool isTag = source[at] == '<';
    const std::size_t found = source.find(isTag ? '>' : '<', at);
    const std::size_t end = found == std::string::npos ? source.size() : found + (isTag ? 1 : 0);
    const std::string_view part = std::string_view(source).substr(at, end - at);
    if (isTag) tag = part;
    result += isTag || StaysWhole(tag) ? std::string(part) : WithBreaks(part);
    at = end;
  }
  return ToWx(result);
}

// What a window shows goes through processors, what is printed through filters.
class BreakingProcessor : public wxHtmlProcessor {
 public:
  wxString Process(const wxString& page) const override { return PageWithBreaks(page); }
};

class BreakingFilter : public wxHtmlFilter {
 public:
  bool CanRead(const wxFSFile& file) const override {
    return file.GetMimeType().StartsWith("text/html");
  }
  // Every page is UTF-8.
  wxString ReadFile(const wxFSFile& file) const override {
    wxStringOutputStream page;
    file.GetStream()->Read(page);
    return PageWithBreaks(page.GetString());
  }
};

// A cell of no size, which by itself would count as formatting.
class BreakCell : public wxHtmlCell {
 public:
  bool IsLinebreakAllowed() const override { return true; }
};

// The toolkit's own tags do not know this one.
class BreakTag : public wxHtmlWinTagHandler {
 public:
  wxString GetSupportedTags() override { return "WBR"; }
  bool HandleTag(const wxHtmlTag& /*tag*/) override {
    m_WParser->GetContainer()->InsertCell(new BreakCell);
    return false;
  }
};

class BreakTags : public wxHtmlTagsModule {
 public:
  void FillHandlersTable(wxHtmlWinParser* parser) override { parser->AddTagHandler(new BreakTag); }
};

}  // namespace

void BreakJapaneseLines() {
  static BreakTags tags;
  static bool known = false;
  if (known) return;
  known = true;
  wxHtmlWinParser::AddModule(&tags);
  // The toolkit deletes these two.
  // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
  wxHtmlWindow::AddGlobalProcessor(new BreakingProcessor);
  wxHtmlPrintout::AddFilter(new BreakingFilter);
  // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
}

}  // namespace qvl
