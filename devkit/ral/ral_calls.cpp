// The calls of ral.h.
#pragma GCC visibility push(default)
#include <ral.h>
#pragma GCC visibility pop

#include "ral/Ral.h"

using ral::Ral;

int RalInsertObject(void* object, void* parent)
{
    return Ral::instance().insertObject(object, parent);
}

int RalDeleteObject(void* object, int arg1, int arg2)
{
    return Ral::instance().deleteObject(object, arg1, arg2);
}

int RalLinkObjects(void* upper, void* lower)
{
    return Ral::instance().linkObjects(upper, lower);
}

int RalListAssociatedObjects(void* object, unsigned int type, void*** list, unsigned int* count)
{
    return Ral::instance().listAssociatedObjects(object, type, list, count);
}

int RalListFree(void** list, unsigned int count)
{
    return Ral::instance().listFree(list, count);
}

int RalSendNotification(void* object)
{
    return Ral::instance().sendNotification(object);
}
