#ifndef ZARNEK_VENDOR_CLIBRARYMANAGER_HELPER_H
#define ZARNEK_VENDOR_CLIBRARYMANAGER_HELPER_H

class IVendorLibrary;

namespace stg
{

// Decides whether a vendor library is worth keeping.
class CLibraryManager_Helper
{
  public:
    virtual ~CLibraryManager_Helper() = default;

    // True when the library sees at least one controller. Initialises the vendor's API, and leaves it so.
    bool checkControllerExistence(unsigned int vendorId, IVendorLibrary* library);
};

} // namespace stg

#endif
