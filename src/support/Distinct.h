// Containers of borrowed or owned pointers in which one object may stand more than once.
#ifndef ZARNEK_SUPPORT_DISTINCT_H
#define ZARNEK_SUPPORT_DISTINCT_H

#include <algorithm>
#include <vector>

namespace stg
{

// Appends a pointer unless it is null or there already.
template <class Object>
void appendDistinct(std::vector<Object*>& objects, Object* object)
{
    if (object != nullptr && std::find(objects.begin(), objects.end(), object) == objects.end())
        objects.push_back(object);
}

} // namespace stg

#endif
