#ifndef ZARNEK_MODEL_CPHYSICALDEVICE_HELPER_H
#define ZARNEK_MODEL_CPHYSICALDEVICE_HELPER_H

#include <string>
#include <utility>

class CPhysicalDevice;

// Removes entries from its owner's value map, one per call. Assigning one helper to another does not rebind
// it: it copies the attributes of the other's owner into this one's.
class CPhysicalDevice_Helper
{
  public:
    explicit CPhysicalDevice_Helper(CPhysicalDevice& owner) : m_pOwner(&owner) {}
    CPhysicalDevice_Helper(const CPhysicalDevice_Helper& other) = default;
    CPhysicalDevice_Helper& operator=(const CPhysicalDevice_Helper& other);
    virtual ~CPhysicalDevice_Helper() = default;

    virtual void operator()(std::pair<std::string, void*> entry);

  private:
    CPhysicalDevice* m_pOwner;
};

#endif
