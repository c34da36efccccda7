#include "mvlayer/ILibraryInterfaceLayer.h"

#include "support/Status.h"

#include <morlan.h>

ILibraryInterfaceLayer::ILibraryInterfaceLayer(unsigned int vendorId, void* vendorLibHandle)
    : m_vendorId(vendorId), m_vendorLibHandle(vendorLibHandle)
{
    DebugPrint("ZARNEK:CLibraryInterfaceLayer: ILibraryInterfaceLayer() Ctor ");
}

ILibraryInterfaceLayer::~ILibraryInterfaceLayer() = default;

short ILibraryInterfaceLayer::releaseEventInfoVector(std::vector<CAlert*>& /*alerts*/)
{
    return stg::STATUS_SUCCESS;
}
