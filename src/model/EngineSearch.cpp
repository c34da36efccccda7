#include "model/EngineSearch.h"

#include "model/IController.h"
#include "sdo/SDOProxy.h"
#include "support/LogScope.h"
#include "support/Status.h"

#include <sdo.h>

namespace stg
{
namespace
{

constexpr char LISTING_FAILED[] = "Failed to retrieve Associated SDOObjects";

} // namespace

template <class Take>
unsigned int EngineSearch::walk(SDOProxy& proxy, void* parent, Take take) const
{
    void** list = nullptr;
    unsigned int count = 0;
    const int status = proxy.retrieveAssociatedSDOObjects(parent, objectType, &list, &count);
    if (failsByStatusOneOnly ? status == STATUS_FAILURE : status != 0) {
        message(label) << LISTING_FAILED << '\n';
        return static_cast<unsigned int>(status);
    }
    message(label) << totalWords << count << '\n';
    unsigned int result = STATUS_NO_MATCH;
    if (count == 0 || list == nullptr)
        return result;

    bool done = false;
    for (unsigned int place = 0; place < count && !done; ++place) {
        void* const object = list[place];
        unsigned int layer = NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(object, SSPROP_VILNUMBER_U32, &layer) != 0) {
            message(label) << "SSPROP_VILNUMBER_U32 not found." << '\n';
            if (unreadableIsFailure)
                result = STATUS_FAILURE;
            continue;
        }
        if (tellsOwnLayer)
            message(label) << layerWords << layer << '\n';
        if (layer == SDO_VIL_NUMBER)
            done = take(object, place, result);
        else
            message(label) << layerWords << layer << '\n';
    }
    proxy.deleteAssociatedSDOObjects(list, count);
    return result;
}

unsigned int EngineSearch::takeOne(SDOProxy& proxy, void* parent, unsigned int wanted,
                                   void** outObjects) const
{
    return walk(proxy, parent, [&](void* object, unsigned int, unsigned int& result) {
        unsigned int key = NUMBER_UNKNOWN;
        if (proxy.retrieveSpecificProperty(object, keyProperty, &key) != 0 || key != wanted)
            return false;
        outObjects[0] = proxy.cloneMyself(object);
        result = outObjects[0] != nullptr ? STATUS_SUCCESS : STATUS_FAILURE;
        if (outObjects[0] == nullptr)
            message(label) << "*outSDOConfigObj is NULL." << '\n';
        return true;
    });
}

unsigned int EngineSearch::takeAll(SDOProxy& proxy, void* parent, void** outObjects) const
{
    return walk(proxy, parent, [&](void* object, unsigned int place, unsigned int& result) {
        outObjects[place] = proxy.cloneMyself(object);
        result = outObjects[place] != nullptr ? STATUS_SUCCESS : STATUS_FAILURE;
        if (outObjects[place] == nullptr)
            message(allLostLabel) << "*outSDOConfigObj is NULL (From else Part)" << '\n';
        return false;
    });
}

unsigned int EngineSearch::takeDevices(unsigned int globalCntrlNum, unsigned int wanted,
                                       void** outObjects) const
{
    const LogScope scope(label);
    outObjects[0] = nullptr;
    IController controller;
    controller.setGlobalControllerNumber(globalCntrlNum);
    SDOProxy proxy;
    void* const parent = proxy.retrieveSingleSDOObject(controller);
    if (parent == nullptr) {
        scope.message() << LISTING_FAILED << '\n';
        return STATUS_FAILURE;
    }
    return wanted == NUMBER_UNKNOWN ? takeAll(proxy, parent, outObjects)
                                    : takeOne(proxy, parent, wanted, outObjects);
}

} // namespace stg
