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

    // True when the library sees at least one controller. Initialises its API and leaves it so; where an
    // earlier library of the same vendor is registered, that one's API is initialised and finalised besides.
    bool checkControllerExistence(unsigned int vendorId, IVendorLibrary* library);
};

} // namespace stg

#endif
