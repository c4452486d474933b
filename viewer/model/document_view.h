#ifndef QVL_VIEWER_MODEL_DOCUMENT_VIEW_H_
#define QVL_VIEWER_MODEL_DOCUMENT_VIEW_H_

namespace qvl {

/// What shows a document, as the document sees it.
class DocumentView {
 public:
  virtual ~DocumentView() = default;

  /// The document's list was filled anew: all rows are others now.
  virtual void OnUpdate() = 0;
  /// A disabled view shows its rows but takes no input.
  virtual void SetEnabled(bool enabled) = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_DOCUMENT_VIEW_H_
