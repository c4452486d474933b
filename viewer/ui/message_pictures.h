#ifndef QVL_VIEWER_UI_MESSAGE_PICTURES_H_
#define QVL_VIEWER_UI_MESSAGE_PICTURES_H_

namespace qvl {

/// Gives every message its exclamation or question mark where the system leaves them out. Once,
/// after the toolkit started.
void ShowPicturesInMessages();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_MESSAGE_PICTURES_H_
