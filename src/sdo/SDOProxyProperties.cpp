// The properties of a proxy's objects: values in, values out.
#include "sdo/SDOProxy.h"

#include "sdo/SDOTypeCode.h"
#include "support/CLogger.h"
#include "support/Status.h"

#include <morlan.h>
#include <sdo.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace stg
{
namespace
{

constexpr char ADD_PROPERTY[] = "ZARNEK:stg::SDOProxy::addProperty(): ";
constexpr int FLAG = 1;                   // last argument of SMSDOConfigAddData
constexpr unsigned int SPECIFIC_SIZE = 4; // the specific operations carry four bytes
constexpr unsigned int NESTED_SIZE = 4;   // nominal: the value is the nested object itself
constexpr int FIRST_VALUE = 0;            // third argument of SMSDOConfigGetDataByID

// Property ids travel in 16 bits.
unsigned short wireId(unsigned int id)
{
    return static_cast<unsigned short>(id);
}

} // namespace

void SDOProxy::resetPropertyDataType()
{
    m_U32Value = 0;
    m_S32Value = 0;
    m_U16Value = 0;
    m_S16Value = 0;
    m_U64Value = 0;
    m_S8Value = 0;
    m_U8Value = 0;
    std::memset(m_StringValue, 0, sizeof m_StringValue);
    m_BoolValue = 0;
    m_BinaryValue = 0;
    m_pCurrentValue = nullptr;
}

template <class Scratch>
int SDOProxy::addScalar(unsigned int id, unsigned char typeValue, const char* typeName, const void* value,
                        Scratch& scratch)
{
    std::memcpy(&scratch, value, sizeof scratch);
    const int status =
        SMSDOConfigAddData(m_pChildSDOConfig, wireId(id), typeValue, &scratch, sizeof scratch, FLAG);
    lout << ADD_PROPERTY << "Property Name: " << id << ", Property Type: " << typeName << ", "
         << "Value: " << scratch << '\n';
    return status;
}

int SDOProxy::addText(unsigned int id, const std::string& text)
{
    std::memset(m_StringValue, 0, sizeof m_StringValue);
    std::memcpy(m_StringValue, text.c_str(), std::min(text.size(), TEXT_SIZE - 1));
    const int status = SMSDOConfigAddData(m_pChildSDOConfig, wireId(id), SDO_TYPE_ASTRING, m_StringValue,
                                          sizeof m_StringValue, FLAG);
    lout << ADD_PROPERTY << "Property Name: " << id << ", Property Type: SM_SDO_TYPE_ASTRING, "
         << "Value: " << m_StringValue << '\n';
    return status;
}

int SDOProxy::addNexus(unsigned int id, const std::vector<unsigned int>& nexus)
{
    m_NexusValue = nexus;
    if (m_NexusValue.empty()) {
        lout << "Nexus Vector is empty." << '\n';
        return STATUS_FAILURE;
    }
    const std::unique_ptr<unsigned int[]> elements(new (std::nothrow) unsigned int[m_NexusValue.size()]);
    if (!elements) {
        lout << "Memory Allocation failed for _nexusArray." << '\n';
        return STATUS_FAILURE;
    }
    lout << ADD_PROPERTY << "Property Name: " << id << ", Property Type: SM_SDO_NUMBERFORMAT_NEXUS_U32, "
         << "Value: ";
    for (std::size_t index = 0; index < m_NexusValue.size(); ++index) {
        elements[index] = m_NexusValue[index];
        lout << elements[index] << "  ";
    }
    lout << '\n';
    return SMSDOConfigAddData(m_pChildSDOConfig, wireId(id), SDO_TYPE_NEXUS_U32, elements.get(),
                              static_cast<unsigned int>(m_NexusValue.size() * sizeof(unsigned int)), FLAG);
}

int SDOProxy::addNested(unsigned int id, const void* object)
{
    const int status =
        SMSDOConfigAddData(m_pChildSDOConfig, wireId(id), SDO_TYPE_SDOCONFIG, object, NESTED_SIZE, FLAG);
    lout << ADD_PROPERTY << "Property Name: " << id << ", Property Type: SM_SDO_TYPE_SDOCONFIG" << '\n';
    return status;
}

template <class Visitor>
int SDOProxy::visitScalar(unsigned char code, Visitor visit)
{
    switch (code) {
    case SDO_CODE_BINARY:
        return visit(m_BinaryValue, SDO_TYPE_BINARY_DATA, "SM_SDO_NUMBERFORMAT_BINARY_DATA");
    case SDO_CODE_BOOL:
        return visit(m_BoolValue, SDO_TYPE_BOOLN, "SM_SDO_TYPE_BOOLN");
    case SDO_CODE_S8:
        return visit(m_S8Value, SDO_TYPE_S8, "SM_SDO_TYPE_S8");
    case SDO_CODE_S16:
        return visit(m_S16Value, SDO_TYPE_S16, "SM_SDO_TYPE_S16");
    case SDO_CODE_S32:
        return visit(m_S32Value, SDO_TYPE_S32, "SM_SDO_TYPE_S32");
    case SDO_CODE_U8:
        return visit(m_U8Value, SDO_TYPE_U8, "SM_SDO_TYPE_U8");
    case SDO_CODE_U16:
        return visit(m_U16Value, SDO_TYPE_U16, "SM_SDO_TYPE_U16");
    case SDO_CODE_U32:
        return visit(m_U32Value, SDO_TYPE_U32, "SM_SDO_TYPE_U32");
    case SDO_CODE_U64:
        return visit(m_U64Value, SDO_TYPE_U64, "SM_SDO_TYPE_U64");
    default:
        return STATUS_FAILURE;
    }
}

int SDOProxy::addByCode(unsigned int id, unsigned char code, const void* value)
{
    if (value == nullptr && code <= SDO_CODE_ASTRING)
        return STATUS_FAILURE; // an attribute that was entered without a value
    switch (code) {
    case SDO_CODE_NEXUS:
        return addNexus(id, *static_cast<const std::vector<unsigned int>*>(value));
    case SDO_CODE_ASTRING:
        return addText(id, *static_cast<const std::string*>(value));
    case SDO_CODE_SDOCONFIG:
        return addNested(id, value);
    default:
        if (code > SDO_CODE_ASTRING) {
            lout << "propType has hit \"default\" label. propType = " << code << '\n';
            return STATUS_FAILURE;
        }
        return visitScalar(code, [&](auto& scratch, unsigned char typeValue, const char* typeName) {
            return addScalar(id, typeValue, typeName, value, scratch);
        });
    }
}

int SDOProxy::addProperty(unsigned int id, unsigned char code, const void* value)
{
    const int status = addByCode(id, code, value);
    if (status != STATUS_SUCCESS)
        lout << ADD_PROPERTY << "Failed to add property to SDOConfig*. "
             << "propName = " << id << ", propType = " << code << '\n';
    return status;
}

int SDOProxy::addSpecificProperty(unsigned int id, unsigned char code, void* value)
{
    return addProperty(id, code, value);
}

short SDOProxy::addSpecificProperty(void* object, unsigned int id, unsigned char type, void* value)
{
    return static_cast<short>(SMSDOConfigAddData(object, wireId(id), type, value, SPECIFIC_SIZE, FLAG));
}

short SDOProxy::retrieveSpecificProperty(unsigned int id, void* out)
{
    unsigned int size = SPECIFIC_SIZE;
    return static_cast<short>(SMSDOConfigGetDataByID(m_pChildSDOConfig, wireId(id), FIRST_VALUE, out, &size));
}

short SDOProxy::retrieveSpecificProperty(void* object, unsigned int id, void* out)
{
    unsigned int size = SPECIFIC_SIZE;
    const auto status =
        static_cast<short>(SMSDOConfigGetDataByID(object, wireId(id), FIRST_VALUE, out, &size));
    if (status != STATUS_SUCCESS)
        message("ZARNEK:stg::SDOProxy::retrieveSpecificProperty()")
            << "Failed to retrieve specific property. Prop Name = " << id << '\n';
    return status;
}

int SDOProxy::getScalar(unsigned int id, void* scratch, unsigned int size)
{
    const int status = SMSDOConfigGetDataByID(m_pChildSDOConfig, wireId(id), FIRST_VALUE, scratch, &size);
    m_pCurrentValue = scratch;
    return status;
}

int SDOProxy::getNexus(unsigned int id)
{
    void* data = nullptr;
    unsigned char type = 0;
    unsigned int size = 0;
    const int status = GetProperty2(m_pChildSDOConfig, wireId(id), &data, &type, &size);
    unsigned int first = 0;
    if (status == STATUS_SUCCESS && data != nullptr && size >= sizeof first) {
        // Only the first element, behind those of earlier reads.
        std::memcpy(&first, data, sizeof first);
        m_NexusValue.push_back(first);
    }
    m_pCurrentValue = &m_NexusValue;
    return status;
}

void SDOProxy::getProperty(unsigned int id, unsigned char code, std::string attribName,
                           AttribValMap* valueMap)
{
    int status = STATUS_FAILURE;
    switch (code) {
    case SDO_CODE_NEXUS:
        status = getNexus(id);
        break;
    case SDO_CODE_ASTRING:
        std::memset(m_StringValue, 0, sizeof m_StringValue);
        status = getScalar(id, m_StringValue, sizeof m_StringValue);
        break;
    default:
        if (code > SDO_CODE_ASTRING) {
            lout << "ZARNEK:stg::SDOProxy::getProperty(): default" << '\n';
            return;
        }
        status = visitScalar(code, [&](auto& scratch, unsigned char, const char*) {
            return getScalar(id, &scratch, sizeof scratch);
        });
        break;
    }
    if (status != STATUS_SUCCESS || valueMap == nullptr)
        return;
    if (!valueMap->emplace(attribName, m_pCurrentValue).second)
        lout << "ZARNEK:stg::SDOProxy::getProperty(): propName:" << id << "propType :" << code
             << "attribName :" << attribName << '\n';
}

} // namespace stg
