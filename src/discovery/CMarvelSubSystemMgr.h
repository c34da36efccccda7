#ifndef ZARNEK_DISCOVERY_CMARVELSUBSYSTEMMGR_H
#define ZARNEK_DISCOVERY_CMARVELSUBSYSTEMMGR_H

#include "discovery/ISubSystemManager.h"

// The manager of the Marvell family, a singleton: owns the query layer, ties the walk to the Marvell event
// manager and controller class, fetches a device's controller from the data engine and completes virtual
// disks. Created and initialised by command 20, destroyed by command 25; until the next 20 nobody may ask
// for the instance.
class CMarvelSubSystemMgr : public ISubSystemManager
{
  public:
    // The singleton, built on first use under the lock; null when an allocation failed.
    static CMarvelSubSystemMgr* getUniqueInstance();
    // Deletes the singleton if there is one: its event manager first, then its query layer. Always 0.
    static short destroyMe();

    CMarvelSubSystemMgr();
    ~CMarvelSubSystemMgr() override;

    using ISubSystemManager::discoverController;
    unsigned int discoverController(unsigned int global, unsigned int controller) override;
    unsigned int initialize() override;
    // For a virtual disk: links it to every physical disk below its parent, takes bus protocol and media from
    // the first of them, and inserts it again. Where the parent could not be fetched, the disks at the top of
    // the data engine stand in for those of the controller. Other types: 0, nothing done.
    unsigned int updateSDOProxyObj(stg::SDOProxy& proxy, unsigned int objectType) override;
    // For disks and virtual disks only, others give 1.
    unsigned int createParentSDOProxyObj(stg::SDOProxy& proxy, unsigned int objectType,
                                         unsigned int global) override;

    // Does nothing. Always 0.
    short exit();

  private:
    static CMarvelSubSystemMgr* m_pMarvelSubSystemMgrInstance;
};

#endif
