#ifndef ZARNEK_MODEL_CMARVELLCONTROLLER_H
#define ZARNEK_MODEL_CMARVELLCONTROLLER_H

#include "model/IController.h"

// A controller of the Marvell family: turns the records of one adapter into the attributes of IController.
class CMarvellController : public IController
{
  public:
    CMarvellController();
    // The list of readable attributes is built anew, not copied.
    CMarvellController(const CMarvellController& other);
    ~CMarvellController() override;

    // `binder` is a stg::QLVCntrlBinder_t or null. Null and null records leave their attributes alone; the
    // nexus is set in every case.
    CMarvellController& operator=(void* binder) override;
    CMarvellController& operator=(stg::AttribValMap& values) override;
    std::list<std::string>* getCntrlSpecificAttrib() override { return &m_CntrlSpecificAttrib; }

    CMarvellController& operator=(const CMarvellController& other);

  private:
    void loadCntrlSpecificAttrib();

    std::list<std::string> m_CntrlSpecificAttrib;
};

#endif
