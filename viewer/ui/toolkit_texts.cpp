#include "viewer/ui/toolkit_texts.h"

#include <wx/arrstr.h>
#include <wx/translation.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "texts/strings.h"

namespace qvl {
namespace {

// Those whose English the toolkit has too; it looks its own texts up by their English.
constexpr StringId kToolkitTexts[] = {
    StringId::kCancel,           StringId::kPreviewPrint,     StringId::kPreviewFirst,
    StringId::kPreviewPrevious,  StringId::kPreviewNext,      StringId::kPreviewLast,
    StringId::kPreviewZoomOut,   StringId::kPreviewZoomIn,    StringId::kPreviewPageOf,
    StringId::kPreviewPage,      StringId::kPrinting,         StringId::kPrintingWait,
    StringId::kPrintingDocument, StringId::kPrintingProgress, StringId::kPrintingPreparing,
    StringId::kPrintingPage,     StringId::kPrintingPageOf,
};

// All texts of its help window stand together.
bool IsOfHelpWindow(StringId id) {
  return id >= StringId::kHelpTitle && id <= StringId::kHelpCancel;
}

using TextPair = std::pair<std::string_view, std::string_view>;

void AppendNumber(std::uint32_t number, std::string& out) {
  for (int shift = 0; shift < 32; shift += 8) out += static_cast<char>((number >> shift) & 0xFF);
}

// A catalogue in the format of "The Format of GNU MO Files" (GNU gettext manual, section 10.3).
std::string Catalogue(const std::vector<TextPair>& texts) {
  constexpr std::uint32_t kMagic = 0x950412DE;
  constexpr std::uint32_t kHeaderSize = 28;
  constexpr std::uint32_t kTableEntrySize = 8;
  const auto count = static_cast<std::uint32_t>(texts.size());
  const std::uint32_t tableSize = count * kTableEntrySize;
  std::string catalogue;
  for (const std::uint32_t number :
       {kMagic, 0U, count, kHeaderSize, kHeaderSize + tableSize, 0U, kHeaderSize + 2 * tableSize}) {
    AppendNumber(number, catalogue);
  }
  std::string bytes;
  const auto append = [&](std::string_view text) {
    AppendNumber(static_cast<std::uint32_t>(text.size()), catalogue);
    AppendNumber(kHeaderSize + 2 * tableSize + static_cast<std::uint32_t>(bytes.size()), catalogue);
    bytes.append(text).push_back('\0');
  };
  for (const TextPair& text : texts) append(text.first);
  for (const TextPair& text : texts) append(text.second);
  return catalogue + bytes;
}

/// The numbered texts as the one catalogue that there is.
class NumberedTexts : public wxTranslationsLoader {
 public:
  wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString& /*language*/) override {
    std::vector<TextPair> texts = {
        {"", "Content-Type: text/plain; charset=UTF-8\n"}
    };
    for (const StringId id : kToolkitTexts) {
      texts.emplace_back(GetString(id, Language::kEnglish), GetString(id));
    }
    for (const StringRow& row : AllStrings()) {
      if (IsOfHelpWindow(row.id)) texts.emplace_back(row.english, row.japanese);
    }
    const std::string catalogue = Catalogue(texts);
    wxCharBuffer bytes(catalogue.size());
    catalogue.copy(bytes.data(), catalogue.size());
    return wxMsgCatalog::CreateFromData(bytes, domain);
  }

  wxArrayString GetAvailableTranslations(const wxString& /*domain*/) const override {
    wxArrayString languages;
    languages.Add("ja");
    return languages;
  }
};

}  // namespace

void TranslateToolkit() {
  if (CurrentLanguage() != Language::kJapanese) return;
  auto* const translations = new wxTranslations;
  wxTranslations::Set(translations);  // owns it
  translations->SetLanguage(wxLANGUAGE_JAPANESE);
  translations->SetLoader(new NumberedTexts);
  translations->AddCatalog("zlkqvxv");
}

}  // namespace qvl
