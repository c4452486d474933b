#ifndef QVL_VIEWER_MODEL_CLOCK_H_
#define QVL_VIEWER_MODEL_CLOCK_H_

#include "platform/local_time.h"

namespace qvl {

/// Tells the time; a test tells its own.
class Clock {
 public:
  virtual ~Clock() = default;

  virtual Moment GetNow() const = 0;
};

}  // namespace qvl

#endif  // QVL_VIEWER_MODEL_CLOCK_H_
