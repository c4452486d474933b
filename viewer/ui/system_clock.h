#ifndef QVL_VIEWER_UI_SYSTEM_CLOCK_H_
#define QVL_VIEWER_UI_SYSTEM_CLOCK_H_

#include "viewer/model/clock.h"

namespace qvl {

class SystemClock : public Clock {
 public:
  Moment GetNow() const override { return Now(); }
};

}  // namespace qvl

#endif  // QVL_VIEWER_UI_SYSTEM_CLOCK_H_
