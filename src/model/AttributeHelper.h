#ifndef ZARNEK_MODEL_ATTRIBUTEHELPER_H
#define ZARNEK_MODEL_ATTRIBUTEHELPER_H

#include <string>
#include <utility>

class CPhysicalDevice;
class CVirtualDevice;
class IController;

namespace stg
{

// Removes entries from its owner's value map, one per call. Assigning one helper to another does not rebind
// it: it copies the attributes of the other's owner into this one's.
template <class Owner>
class AttributeHelper
{
  public:
    explicit AttributeHelper(Owner& owner) : m_pOwner(&owner) {}
    AttributeHelper(const AttributeHelper& other) = default;
    AttributeHelper& operator=(const AttributeHelper& other)
    {
        *m_pOwner = *other.m_pOwner;
        return *this;
    }
    virtual ~AttributeHelper() = default;

    virtual void operator()(std::pair<std::string, void*> entry) { m_pOwner->deleteFromMap(entry.first); }

  private:
    Owner* m_pOwner;
};

} // namespace stg

using CController_Helper = stg::AttributeHelper<IController>;
using CPhysicalDevice_Helper = stg::AttributeHelper<CPhysicalDevice>;
using CVirtualDevice_Helper = stg::AttributeHelper<CVirtualDevice>;

#endif
