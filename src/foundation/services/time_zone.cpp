#include "foundation/services/time_zone.h"

#include <cstdlib>
#include <ctime>

namespace vardolin {

void PinTimeZone() {
  if (!std::getenv("TZ")) ::setenv("TZ", ":/etc/localtime", 0);
  ::tzset();
}

}  // namespace vardolin
