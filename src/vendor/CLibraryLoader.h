#ifndef ZARNEK_VENDOR_CLIBRARYLOADER_H
#define ZARNEK_VENDOR_CLIBRARYLOADER_H

#include "vendor/SVendorInfo.h"

#include <string>
#include <vector>

class IVendorLibrary;

// Short-lived worker of the library manager: reads the vendor list and creates the library objects. A library
// that sees a controller passes to the manager; one that sees none stays loaded, out of everyone's reach.
class CLibraryLoader
{
  public:
    CLibraryLoader();
    virtual ~CLibraryLoader();

    // Reads the vendor list. 0 or -1.
    short initializeLibLoader();
    // Appends the configured vendors to the list. Always 0.
    short setVendorInfo();
    std::vector<stg::SVendorInfo_t> getVendorInfo();
    // A library object for this vendor, owned by the caller; null for a vendor that the system does not know.
    IVendorLibrary* createLibModelObj(std::string vendorId, std::string libName);
    // Loads, binds and tests libraries from the list's end and takes them off, half of them, an odd one
    // included. Always 0.
    short createAllLibObjs();
    // Does nothing.
    void initializePath(std::string directory, std::string name);

  private:
    std::string m_path; // stays empty
    std::vector<stg::SVendorInfo_t> m_vendorInfo;
};

#endif
