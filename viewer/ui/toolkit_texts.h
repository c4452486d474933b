#ifndef QVL_VIEWER_UI_TOOLKIT_TEXTS_H_
#define QVL_VIEWER_UI_TOOLKIT_TEXTS_H_

namespace qvl {

/// Gives the texts that the toolkit brings itself, in the preview, while it prints and in its help
/// window, in the process's language. Call once, when that stands and before the first window.
void TranslateToolkit();

}  // namespace qvl

#endif  // QVL_VIEWER_UI_TOOLKIT_TEXTS_H_
