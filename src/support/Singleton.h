// Creation and end of the plug-in's singletons.
#ifndef ZARNEK_SUPPORT_SINGLETON_H
#define ZARNEK_SUPPORT_SINGLETON_H

#include "support/CCriticalSection.h"

#include <new>

namespace stg
{

// The instance, built on first use under the process-wide lock. After a failed allocation it stays null, and
// `onFailure` gets the exception.
template <class Object, class OnFailure>
Object* uniqueInstance(Object*& instance, OnFailure onFailure)
{
    if (instance == nullptr) {
        const CCriticalSection lock;
        if (instance == nullptr) {
            try {
                instance = new Object;
            } catch (const std::bad_alloc& failure) {
                onFailure(failure);
            }
        }
    }
    return instance;
}

// Deletes the instance, if there is one, and only then forgets it.
template <class Object>
void destroyInstance(Object*& instance)
{
    delete instance;
    instance = nullptr;
}

} // namespace stg

#endif
