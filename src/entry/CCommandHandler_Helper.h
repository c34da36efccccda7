#ifndef ZARNEK_ENTRY_CCOMMANDHANDLER_HELPER_H
#define ZARNEK_ENTRY_CCOMMANDHANDLER_HELPER_H

#include <utility>

class CCommandHandler;
class CSubSystemFactory;
class ISubSystemManager;
class IVendorLibrary;

namespace stg
{

// Walks vendor libraries or the handler's list of managers: an action that creates or removes a manager, or a
// predicate that looks for an identifier. A copy does not keep the factory, so the creating walk needs the
// object itself.
class CCommandHandler_Helper
{
  public:
    // Creates a manager for each vendor library.
    explicit CCommandHandler_Helper(CSubSystemFactory*& factory);
    // Removes each manager if `remove` is true.
    explicit CCommandHandler_Helper(bool remove);
    // Any other pointer would count as a Boolean.
    explicit CCommandHandler_Helper(const void* pointer) = delete;
    // Looks for the manager with this identifier.
    explicit CCommandHandler_Helper(unsigned int managerId);
    CCommandHandler_Helper(const CCommandHandler_Helper& other);
    CCommandHandler_Helper& operator=(const CCommandHandler_Helper&) = delete;
    ~CCommandHandler_Helper();

    void operator()(std::pair<unsigned int, IVendorLibrary*> entry);
    bool operator()(ISubSystemManager*& manager);

  private:
    CCommandHandler* m_pHandler;
    CSubSystemFactory* m_pFactory;
    bool m_bRemove;
    unsigned int m_MgrUniqueID;
};

} // namespace stg

#endif
