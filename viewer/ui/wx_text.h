#ifndef QVL_VIEWER_UI_WX_TEXT_H_
#define QVL_VIEWER_UI_WX_TEXT_H_

#include <wx/string.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "texts/strings.h"

namespace qvl {

/// UTF-8 as the toolkit's text. Bytes that are no UTF-8 show as Windows-1252 and are never lost.
wxString ToWx(std::string_view utf8);
std::string FromWx(const wxString& text);

/// A numbered text in the process's language, its conversions replaced as by `FilledText`.
wxString TextOf(StringId id, std::initializer_list<std::string_view> arguments = {});

/// Paths as the model has them: UTF-8 on Windows, bytes elsewhere.
wxString PathToWx(const std::string& path);
std::string PathFromWx(const wxString& path);

}  // namespace qvl

#endif  // QVL_VIEWER_UI_WX_TEXT_H_
