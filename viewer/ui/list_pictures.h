#ifndef QVL_VIEWER_UI_LIST_PICTURES_H_
#define QVL_VIEWER_UI_LIST_PICTURES_H_

#include <wx/bmpbndl.h>

namespace qvl {

/// The pictures of the severities, in the order of `CellContent::image`: a red octagon with a
/// cross, an amber triangle with a stroke and a dot, a green disc with a tick, a blue square with
/// an i. Drawn for 100, 150 and 200 per cent.
wxVector<wxBitmapBundle> ListPictures();

/// The program's own picture, for the title bar.
wxBitmapBundle ProgramPicture();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_LIST_PICTURES_H_
