#ifndef ZARNEK_VENDOR_SVENDORINFO_H
#define ZARNEK_VENDOR_SVENDORINFO_H

#include <string>

namespace stg
{

// One vendor library to load, as the private INI names it.
struct SVendorInfo_t {
    std::string m_VendorID; // vendor id, still text
    std::string m_LibName;  // file name without ".so"
};

} // namespace stg

#endif
