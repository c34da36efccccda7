#include "sdo/SDOProxy_Helper.h"

#include "model/TypeTags.h"
#include "sdo/SDOProxy.h"
#include "support/CLogger.h"

namespace stg
{

SDOProxy_Helper::SDOProxy_Helper(SDOProxy& proxy, AttribTypeMap* types, AttribValMap* valueMap)
    : m_Proxy(proxy), m_pTypes(types), m_pValueMap(valueMap)
{
}

bool SDOProxy_Helper::find(const char* label, const std::string& attribName, PropertyType& found) const
{
    const auto row = m_pTypes->find(attribName);
    if (row == m_pTypes->end()) {
        message(label) << "Couldn't find the Attribute, named " << attribName
                       << " in ATTRIB_NAME_AND_TYPE_MAP." << '\n';
        return false;
    }
    const std::string& tag = row->second.m_AttribType;
    const auto& lookupTable = SDOProxy::getLookupTable();
    const auto code = lookupTable.find(tag);
    if (code == lookupTable.end()) {
        message(label) << "Couldn't find the Attribute type, named " << tag
                       << " in the lookup table of SDOProxy." << '\n';
        return false;
    }
    found = {row->second.m_PropertyID, code->second, tag == TAG_BOOL_TYPE || tag == "bool"};
    return true;
}

void SDOProxy_Helper::operator()(std::pair<std::string, void*> pairObj)
{
    static constexpr char LABEL[] = "ZARNEK:stg::SDOProxy_Helper::operator () ( ATTRIB_VALUE_PAIR pairObj )";

    PropertyType type{};
    if (!find(LABEL, pairObj.first, type))
        return;
    lout << "Property name = " << type.id << ", Property Type = " << static_cast<unsigned int>(type.code)
         << '\n';
    if (type.isBool && pairObj.second != nullptr) {
        const unsigned int widened = *static_cast<const unsigned char*>(pairObj.second) != 0 ? 1 : 0;
        m_Proxy.addProperty(type.id, type.code, &widened);
    } else {
        m_Proxy.addProperty(type.id, type.code, pairObj.second);
    }
}

void SDOProxy_Helper::operator()(std::string objSpecificAttrib)
{
    static constexpr char LABEL[] = "ZARNEK:stg::SDOProxy_Helper::operator () ( STDSTR objSpecificAttrib )";

    PropertyType type{};
    if (find(LABEL, objSpecificAttrib, type))
        m_Proxy.getProperty(type.id, type.code, objSpecificAttrib, m_pValueMap);
}

} // namespace stg
