#ifndef ZARNEK_MODEL_CVIRTUALDEVICE_HELPER_H
#define ZARNEK_MODEL_CVIRTUALDEVICE_HELPER_H

#include <string>
#include <utility>

class CVirtualDevice;

// Removes entries from its owner's value map, one per call. Assigning one helper to another does not rebind
// it: it copies the attributes of the other's owner into this one's.
class CVirtualDevice_Helper
{
  public:
    explicit CVirtualDevice_Helper(CVirtualDevice& owner) : m_pOwner(&owner) {}
    CVirtualDevice_Helper(const CVirtualDevice_Helper& other) = default;
    CVirtualDevice_Helper& operator=(const CVirtualDevice_Helper& other);
    virtual ~CVirtualDevice_Helper() = default;

    virtual void operator()(std::pair<std::string, void*> entry);

  private:
    CVirtualDevice* m_pOwner;
};

#endif
