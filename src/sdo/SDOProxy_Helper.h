#ifndef ZARNEK_SDO_SDOPROXY_HELPER_H
#define ZARNEK_SDO_SDOPROXY_HELPER_H

#include "model/SAttribTypeProp.h"

#include <string>
#include <utility>

namespace stg
{

class SDOProxy;

// Walks attributes for a proxy: a pair of name and value becomes a property of the proxy's child, a name
// alone is read back from it. An attribute without a row or type code is logged and passed over.
class SDOProxy_Helper
{
  public:
    // `valueMap` receives what is read; null for writing.
    SDOProxy_Helper(SDOProxy& proxy, AttribTypeMap* types, AttribValMap* valueMap);

    void operator()(std::pair<std::string, void*> pairObj);
    void operator()(std::string objSpecificAttrib);

  private:
    struct PropertyType {
        unsigned int id;
        unsigned char code;
        bool isBool; // the value is one byte, but travels in the four of its code
    };
    bool find(const char* label, const std::string& attribName, PropertyType& found) const;

    SDOProxy& m_Proxy;
    AttribTypeMap* m_pTypes;
    AttribValMap* m_pValueMap;
};

} // namespace stg

#endif
