// Ownership of the two objects, the type table, and the calls that make, move and link objects in the data
// engine. The properties of an object stand in SDOProxyProperties.cpp.
#include "sdo/SDOProxy.h"

#include "events/CAlert.h"
#include "events/CControl_Notify.h"
#include "model/CPhysicalDevice.h"
#include "model/CVirtualDevice.h"
#include "model/IController.h"
#include "model/TypeTags.h"
#include "sdo/SDOProxy_Helper.h"
#include "sdo/SDOTypeCode.h"
#include "support/CLogger.h"
#include "support/LogScope.h"
#include "support/Status.h"
#include "support/TextTools.h"

#include <morlan.h>
#include <ral.h>
#include <sdo.h>

#include <algorithm>
#include <cstring>
#include <list>

namespace stg
{

std::map<std::string, unsigned char> SDOProxy::m_LookupTable;
bool SDOProxy::m_bIsLookupTable = false;

void SDOProxy::initializeLookupTable()
{
    struct TypeName {
        const char* name;
        SDOTypeCode code;
    };
    static constexpr TypeName TYPE_NAMES[] = {
        {TAG_UNSIGNED_INTEGER, SDO_CODE_U32},
        {"unsigned", SDO_CODE_U32},
        {"unsigned int", SDO_CODE_U32},
        {"U32", SDO_CODE_U32},
        {"INTEGER", SDO_CODE_S32},
        {"int", SDO_CODE_S32},
        {TAG_USHORT_INT, SDO_CODE_U16},
        {"unsigned short", SDO_CODE_U16},
        {"unsigned short int", SDO_CODE_U16},
        {"SHORT_INT", SDO_CODE_S16},
        {"short int", SDO_CODE_S16},
        {"short", SDO_CODE_S16},
        {TAG_ULONG_ULONG_INT, SDO_CODE_U64},
        {"unsigned long long int", SDO_CODE_U64},
        {"unsigned long long", SDO_CODE_U64},
        {"ULONG_INT", SDO_CODE_U32},
        {"unsigned long int", SDO_CODE_U32},
        {"unsigned long", SDO_CODE_U32},
        {"LONG", SDO_CODE_U32}, // unsigned, the word notwithstanding
        {"CHAR_", SDO_CODE_S8},
        {"char", SDO_CODE_S8},
        {"UCHAR_", SDO_CODE_U8},
        {"unsigned char", SDO_CODE_U8},
        {"u8", SDO_CODE_U8},
        {TAG_BINARY_DATA_TYPE, SDO_CODE_BINARY},
        {"CHARPTR", SDO_CODE_ASTRING},
        {"char*", SDO_CODE_ASTRING},
        {TAG_STDSTR, SDO_CODE_ASTRING},
        {"string", SDO_CODE_ASTRING},
        {TAG_BOOL_TYPE, SDO_CODE_BINARY}, // a Boolean travels as binary data
        {"bool", SDO_CODE_BINARY},
        {TAG_NEXUS_TYPE, SDO_CODE_NEXUS},
        {TAG_CONTROL_NOTIFY_TYPE, SDO_CODE_SDOCONFIG},
    };

    if (m_bIsLookupTable)
        return;
    for (const TypeName& row : TYPE_NAMES)
        m_LookupTable.emplace(row.name, row.code);
    m_bIsLookupTable = true;
}

SDOProxy::SDOProxy() : m_bOwnChild(true)
{
    resetPropertyDataType();
    initializeLookupTable();
    m_pChildSDOConfig = SMSDOConfigAlloc(); // last: if the table finds no memory, no destructor runs
}

SDOProxy::SDOProxy(void* child) : m_pChildSDOConfig(child)
{
    resetPropertyDataType();
    initializeLookupTable();
}

SDOProxy::SDOProxy(const SDOProxy& other)
{
    cloneSDOProxy(other);
}

SDOProxy& SDOProxy::operator=(const SDOProxy& other)
{
    if (this != &other)
        cloneSDOProxy(other);
    return *this;
}

SDOProxy::~SDOProxy()
{
    if (m_bOwnChild)
        SMSDOConfigFree(m_pChildSDOConfig);
    if (m_bOwnParent)
        SMSDOConfigFree(m_pParentSDOConfig);
}

void SDOProxy::cloneSDOProxy(const SDOProxy& other)
{
    initializeLookupTable();
    m_pChildSDOConfig = SMSDOConfigClone(other.m_pChildSDOConfig);
    m_bOwnChild = true;
    m_pParentSDOConfig = SMSDOConfigClone(other.m_pParentSDOConfig);
    m_bOwnParent = true;
    m_U32Value = other.m_U32Value;
    m_S32Value = other.m_S32Value;
    m_U16Value = other.m_U16Value;
    m_S16Value = other.m_S16Value;
    m_U64Value = other.m_U64Value;
    m_S8Value = other.m_S8Value;
    m_U8Value = other.m_U8Value;
    std::memcpy(m_StringValue, other.m_StringValue, sizeof m_StringValue);
    m_BoolValue = other.m_BoolValue;
    m_BinaryValue = other.m_BinaryValue;
    m_NexusValue = other.m_NexusValue;
    m_pCurrentValue = nullptr; // it would point into the other proxy
}

void SDOProxy::setChildSDOConfigPtr(void* child)
{
    if (m_bOwnChild && child != m_pChildSDOConfig)
        SMSDOConfigFree(m_pChildSDOConfig);
    m_pChildSDOConfig = nullptr;
    if (child != nullptr) {
        m_pChildSDOConfig = child;
        m_bOwnChild = false;
    }
}

void SDOProxy::setParentSDOConfigPtr(void* parent)
{
    if (m_bOwnParent && parent != m_pParentSDOConfig)
        SMSDOConfigFree(m_pParentSDOConfig);
    m_pParentSDOConfig = nullptr;
    if (parent != nullptr) {
        m_pParentSDOConfig = parent;
        m_bOwnParent = false;
    }
}

void SDOProxy::cloneChildSDOConfig(const void* child)
{
    void* const present = m_pChildSDOConfig;
    m_pChildSDOConfig = SMSDOConfigClone(child);
    m_bOwnChild = true;
    SMSDOConfigFree(present);
}

void SDOProxy::cloneParentSDOConfig(const void* parent)
{
    void* const present = m_pParentSDOConfig;
    m_pParentSDOConfig = SMSDOConfigClone(parent);
    m_bOwnParent = true;
    SMSDOConfigFree(present);
}

void SDOProxy::cloneSDOConfig(const void* child, const void* parent)
{
    cloneChildSDOConfig(child);
    if (parent != nullptr)
        cloneParentSDOConfig(parent);
}

void* SDOProxy::cloneMyself(const void* object) const
{
    return object != nullptr ? SMSDOConfigClone(object) : nullptr;
}

void SDOProxy::deleteClonedSDOObj(void* object) const
{
    if (object != nullptr)
        SMSDOConfigFree(object);
}

int SDOProxy::createFromAttributes(AttribTypeMap& types, AttribValMap& values)
{
    std::for_each(values.begin(), values.end(), SDOProxy_Helper(*this, &types, nullptr));
    return STATUS_SUCCESS;
}

int SDOProxy::insertIntoDataEngine()
{
    const LogScope scope("ZARNEK:stg::SDOProxy::insertIntoDataEngine()");

    void* const parent = cloneMyself(m_pParentSDOConfig);
    void* const child = SMSDOConfigClone(m_pChildSDOConfig);
    const int status = RalInsertObject(child, parent);
    if (status != 0)
        scope.message() << "RalInsertObject Failed." << '\n';
    return status;
}

int SDOProxy::removeFromDataEngine(void* object)
{
    return object != nullptr ? RalDeleteObject(object, 1, 0) : STATUS_FAILURE;
}

int SDOProxy::sendAlertNotification()
{
    return RalSendNotification(SMSDOConfigClone(m_pChildSDOConfig));
}

int SDOProxy::createSDOLinkWithParent(void* upper)
{
    return RalLinkObjects(upper, m_pChildSDOConfig);
}

int SDOProxy::createSDOLinkWithChild(void* lower)
{
    return RalLinkObjects(m_pChildSDOConfig, lower);
}

int SDOProxy::createSDOParentChildLink()
{
    return RalLinkObjects(m_pParentSDOConfig, m_pChildSDOConfig);
}

int SDOProxy::createLinkBetween(void* object, unsigned int objType, OBJECT_RELATION relation, unsigned int id)
{
    static constexpr char MESSAGE[] = "ZARNEK:stg::SDOProxy::createChildLinkWith(): ";
    const LogScope scope("ZARNEK:stg::SDOProxy::createChildLinkWith()");

    void** list = nullptr;
    unsigned int count = 0;
    int status = retrieveAssociatedSDOObjects(object, objType, &list, &count);
    if (status != 0 || count == 0)
        return status;

    const auto link = [&](void* found, const char* failure) {
        status = relation == RELATION_CHILD ? createSDOLinkWithChild(found) : createSDOLinkWithParent(found);
        if (status == STATUS_FAILURE)
            lout << MESSAGE << failure << '\n';
    };
    for (unsigned int index = 0; index < count; ++index) {
        void* const found = cloneMyself(list[index]);
        if (found == nullptr)
            continue;
        bool linkedTheOne = false;
        if (id == NUMBER_UNKNOWN) {
            link(found, "Failed to create link with its Child (From else part).");
        } else {
            unsigned int foundId = NUMBER_UNKNOWN;
            status = retrieveSpecificProperty(found, SSPROP_DEVICEID_U32, &foundId);
            linkedTheOne = status == 0 && foundId == id;
            if (linkedTheOne)
                link(found, "Failed to create link with its Child.");
            else
                lout << MESSAGE << "Failed to retrieve device ID." << '\n'; // also for a plain mismatch
        }
        deleteClonedSDOObj(found);
        if (linkedTheOne)
            break;
    }
    deleteAssociatedSDOObjects(list, count);
    return status;
}

int SDOProxy::retrieveAssociatedSDOObjects(void* object, unsigned int objType, void*** list,
                                           unsigned int* count)
{
    return RalListAssociatedObjects(object, objType, list, count);
}

int SDOProxy::deleteAssociatedSDOObjects(void** list, unsigned int count)
{
    if (list == nullptr || count == 0)
        return STATUS_FAILURE;
    return RalListFree(list, count);
}

template <class Fetch>
void* SDOProxy::retrieveByKey(const char* label, const char* missingKey, const char* failure, Fetch fetch)
{
    LogScope scope(label);
    if (missingKey != nullptr) {
        scope.message() << missingKey << '\n';
    } else if (m_pChildSDOConfig == nullptr || !m_bOwnChild) {
        scope.message()
            << "Child Pointer of SDOProxy is pointing somewhere else. Not able to replace the Child Pointer."
            << '\n';
    } else {
        SMSDOConfigFree(m_pChildSDOConfig);
        m_pChildSDOConfig = nullptr;
        m_bOwnChild = false;
        const unsigned int status = fetch(&m_pChildSDOConfig);
        m_bOwnChild = true; // also of what a failed fetch stored
        if (status == STATUS_SUCCESS)
            return m_pChildSDOConfig;
    }
    scope.message() << failure << '\n';
    scope.skipExit();
    return nullptr;
}

template <class Object, class Fetch>
unsigned int SDOProxy::readBack(Object& object, std::list<std::string> names, AttribTypeMap& types,
                                Fetch fetch)
{
    setChildSDOConfigPtr(nullptr);
    const unsigned int status = fetch(&m_pChildSDOConfig);
    m_bOwnChild = true;

    AttribValMap values;
    std::for_each(names.begin(), names.end(), SDOProxy_Helper(*this, &types, &values));
    // What was read as text stands in a block of characters; the object's setters take strings.
    std::list<std::string> texts;
    for (auto& value : values)
        if (value.second == m_StringValue)
            value.second = &texts.emplace_back(textFromField(m_StringValue, TEXT_SIZE));
    object = values;
    return status;
}

// ---- per class of model object

int SDOProxy::createSDOObject(IController& controller)
{
    return createFromAttributes(controller.getAttribNameAndType(), *controller.getAttribValueMap());
}

int SDOProxy::createSDOObject(CPhysicalDevice& disk)
{
    return createFromAttributes(disk.getPdAttribNameAndType(), *disk.getPdAttribValueMap());
}

int SDOProxy::createSDOObject(CVirtualDevice& drive)
{
    return createFromAttributes(drive.getAttribNameAndType(), *drive.getAttribValueMap());
}

int SDOProxy::createSDOObject(CAlert& alert)
{
    return createFromAttributes(alert.getAttribNameAndType(), *alert.getAttribValueMap());
}

int SDOProxy::createSDOObject(CControl_Notify& notify)
{
    return createFromAttributes(notify.getAttribNameAndType(), *notify.getAttribValueMap());
}

namespace
{

constexpr char CONTROLLER_MISSING[] = "GlobalControllerNumber is missing. Not able to proceed further.";
constexpr char DISK_MISSING[] = "Physical Device ID is missing. Not able to proceed further.";
constexpr char DRIVE_MISSING[] = "Logical Drive Number is missing. Not able to proceed further.";

// The words for the first key that is not known, null when both are.
const char* missingKey(unsigned int controller, unsigned int device, const char* deviceMissing)
{
    if (controller == NUMBER_UNKNOWN)
        return CONTROLLER_MISSING;
    return device == NUMBER_UNKNOWN ? deviceMissing : nullptr;
}

} // namespace

void* SDOProxy::retrieveSingleSDOObject(IController& controller)
{
    const unsigned int number = controller.getGlobalControllerNumber();
    return retrieveByKey("ZARNEK:stg::SDOProxy::retrieveSingleSDOObject( IController& cntrlRef )",
                         number == NUMBER_UNKNOWN ? CONTROLLER_MISSING : nullptr,
                         "Failed to get Controller Object from Data Engine.", [&](void** child) {
                             return controller.getControllerObject(nullptr, number, child);
                         });
}

void* SDOProxy::retrieveSingleSDOObject(CPhysicalDevice& disk)
{
    const unsigned int number = disk.getGlobalCntrlNum();
    const unsigned int deviceId = disk.getDevID();
    return retrieveByKey(
        "ZARNEK:stg::SDOProxy::retrieveSingleSDOObject( CPhysicalDevice& physicalDeviceRef )",
        missingKey(number, deviceId, DISK_MISSING), "Failed to get PD Object from Data Engine.",
        [&](void** child) { return disk.getPdObject(number, child, deviceId); });
}

void* SDOProxy::retrieveSingleSDOObject(CVirtualDevice& drive)
{
    const unsigned int number = drive.getGlobalControllerNo();
    const unsigned int driveNumber = drive.getLogicalDriveNum();
    return retrieveByKey("ZARNEK:stg::SDOProxy::retrieveSingleSDOObject( CVirtualDevice& virtualDeviceRef )",
                         missingKey(number, driveNumber, DRIVE_MISSING),
                         "Failed to get VD Object from Data Engine.",
                         [&](void** child) { return drive.getVdObject(number, child, driveNumber); });
}

unsigned int SDOProxy::retrieveObjectFromSDO(IController& controller)
{
    return readBack(controller, *controller.getCntrlSpecificAttrib(), controller.getAttribNameAndType(),
                    [&](void** child) {
                        return controller.getControllerObject(nullptr, controller.getGlobalControllerNumber(),
                                                              child);
                    });
}

unsigned int SDOProxy::retrieveObjectFromSDO(CPhysicalDevice& disk)
{
    const unsigned int deviceId = disk.getDevID();
    if (deviceId == NUMBER_UNKNOWN)
        return STATUS_FAILURE; // it would ask for all disks, and the child has room for one
    return readBack(disk, *disk.getPdSpecificAttrib(), disk.getPdAttribNameAndType(), [&](void** child) {
        return disk.getPdObject(disk.getGlobalCntrlNum(), child, deviceId);
    });
}

unsigned int SDOProxy::retrieveObjectFromSDO(CVirtualDevice& /*drive*/)
{
    return STATUS_FAILURE;
}

} // namespace stg
