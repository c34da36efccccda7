#ifndef ZARNEK_VENDOR_IVENDORLIBRARY_H
#define ZARNEK_VENDOR_IVENDORLIBRARY_H

#include <list>
#include <string>

// One closed vendor RAID library loaded into the process: its file name, its handle, its vendor id. A
// subclass adds the entry points. Used in the order: construct, setLibHandle, setAPIName, then the accessors;
// the object gives its handle back when it goes, and whoever still works with it must be gone by then: query
// layers keep a plain pointer. Written on one thread before it is published, only read afterwards.
class IVendorLibrary
{
  public:
    // `vendorId` counts as strtol reads it in base 10, 0 without digits; `libName` is a file name without
    // ".so".
    IVendorLibrary(std::string vendorId, std::string libName);
    IVendorLibrary(const IVendorLibrary&) = delete;
    IVendorLibrary& operator=(const IVendorLibrary&) = delete;

    // Opens `name`.so along the loader's search path and returns its handle, null on failure.
    virtual void* loadLibrary(std::string name);
    virtual ~IVendorLibrary();
    // Binds the entry points of the loaded library. 0, also when the library or a symbol is missing.
    virtual short setAPIName() = 0;
    // Loads the library of this object, unless its name is empty. Always 0: a failure shows as a null handle.
    virtual short setLibHandle();
    // Unloads a library; null does nothing. Always 0.
    virtual short unloadLibHandle(void* handle);
    virtual void* getLibHandle();
    virtual unsigned int getVendorId();

  private:
    std::string m_libName;
    std::list<std::string> m_apiNames;
    void* m_libHandle = nullptr;
    unsigned int m_vendorId;
};

#endif
