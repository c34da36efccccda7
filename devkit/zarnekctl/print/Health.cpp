#include "zarnekctl/print/Health.h"

#include <sdo.h>

namespace zarnekctl
{

Health healthOf(const Object& object)
{
    switch (object.number(SSPROP_STATUS_U32).value_or(SDO_STATUS_UNKNOWN)) {
    case SDO_STATUS_OK:
        return Health::Good;
    case SDO_STATUS_WARNING:
        return Health::Warning;
    case SDO_STATUS_CRITICAL:
        return Health::Critical;
    default:
        return Health::Unknown;
    }
}

} // namespace zarnekctl
