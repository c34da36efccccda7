#ifndef ZARNEK_MODEL_CCONTROLLER_HELPER_H
#define ZARNEK_MODEL_CCONTROLLER_HELPER_H

#include <string>
#include <utility>

class IController;

// Removes entries from its owner's value map, one per call. Assigning one helper to another does not rebind
// it: it copies the attributes of the other's owner into this one's.
class CController_Helper
{
  public:
    explicit CController_Helper(IController& owner) : m_pOwner(&owner) {}
    CController_Helper(const CController_Helper& other) = default;
    CController_Helper& operator=(const CController_Helper& other);
    virtual ~CController_Helper() = default;

    virtual void operator()(std::pair<std::string, void*> entry);

  private:
    IController* m_pOwner;
};

#endif
