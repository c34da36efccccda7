#include "vendor/CLibraryManager_Helper.h"

#include "mvlayer/CMVLibraryInterfaceLayer.h"
#include "support/LogScope.h"
#include "vendor/IVendorLibrary.h"

#include <sdo.h>

#include <memory>
#include <new>

namespace stg
{

bool CLibraryManager_Helper::checkControllerExistence(unsigned int vendorId, IVendorLibrary* library)
{
    const LogScope scope("ZARNEK:CLibraryManager_Helper:checkControllerExistence()");
    if (vendorId != SDO_VIL_NUMBER)
        return false;
    try {
        // The library is not registered yet, so this layer finds none and leaves the API alone when it goes;
        // on a repeated initialise it finds the earlier library, and initialises and finalises that one's
        // API.
        const auto layer = std::make_unique<CMVLibraryInterfaceLayer>(vendorId, library->getLibHandle());
        return layer->getControllerCount(library) != 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace stg
