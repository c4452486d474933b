#ifndef QVL_VIEWER_UI_LIST_PICTURES_H_
#define QVL_VIEWER_UI_LIST_PICTURES_H_

#include <wx/bmpbndl.h>
#include <wx/colour.h>

#include <array>
#include <cstddef>

namespace qvl {

inline constexpr std::size_t kSeverityPictures = 4;

struct PictureColours {
  wxColour inside;
  wxColour edge;
};

/// What stands for a severity in colour, in the order of its pictures.
const std::array<PictureColours, kSeverityPictures>& SeverityColours();

/// The pictures of the severities, in the order of `CellContent::image`: a red octagon with a
/// cross, an amber triangle with a stroke and a dot, a green disc with a tick, a blue square with
/// an i. Drawn for 100, 150 and 200 per cent.
wxVector<wxBitmapBundle> ListPictures();

/// The program's own picture, for the title bar.
wxBitmapBundle ProgramPicture();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_LIST_PICTURES_H_
