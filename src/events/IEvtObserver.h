#ifndef ZARNEK_EVENTS_IEVTOBSERVER_H
#define ZARNEK_EVENTS_IEVTOBSERVER_H

#include "model/SAttribTypeProp.h"

#include <vector>

class CAlert;
class ICommand;
class IEvtSubject;

namespace stg
{
class SDOProxy;
}

// Turns a batch of alerts into what the data engine sees, and asks for the discovery that each alert calls
// for. Runs on the event thread, within the subject's notifyObserver. Statuses are 0 or 1, that of
// sendAlert is the data engine's; one alert's failure never stops the batch. An exception does, and ends the
// process: std::out_of_range from a line of nothing but white space in the mapping file.
class IEvtObserver
{
  public:
    IEvtObserver() = default;
    IEvtObserver(const IEvtObserver& other);
    // Does nothing.
    IEvtObserver& operator=(const IEvtObserver& other);

    virtual ~IEvtObserver();
    // Processes each alert, in the order of the vector.
    virtual void updateMyself(std::vector<CAlert*>& alerts);
    // Registers with the subject; `callback` is where commands go.
    virtual void getAssociatedWith(IEvtSubject* subject, short (*callback)(ICommand&));
    // Appends the ids of the properties that name an object of this type, and may change `attribTypes`.
    virtual void createNexus(unsigned int objType, stg::AttribTypeMap& attribTypes,
                             std::vector<unsigned int>& nexus) = 0;
    // Builds and dispatches the commands that the alert number calls for.
    virtual short generateActionCommand(unsigned int alert, unsigned int objType, unsigned int globalNum,
                                        unsigned int cntrlId, unsigned int devId) = 0;
    virtual short dispatchCommand(ICommand& command) = 0;
    // Sends one alert and asks for its action.
    virtual short processAlert(CAlert* alert);

    short sendAlert(stg::SDOProxy& proxy);
    // Sends the alert as an SDO object, then asks for its action. Always 1.
    short createSDOProxyObj(CAlert* alert);

  protected:
    short (*m_pfnTakeAction)(ICommand&) = nullptr;
};

#endif
