#ifndef ZARNEK_SDO_SDOPROXY_H
#define ZARNEK_SDO_SDOPROXY_H

#include "model/SAttribTypeProp.h"

#include <list>
#include <map>
#include <string>
#include <vector>

class CAlert;
class CControl_Notify;
class CPhysicalDevice;
class CVirtualDevice;
class IController;

namespace stg
{

// What an object that a search found becomes to the proxy's child. Any other value than CHILD counts as
// PARENT.
enum OBJECT_RELATION : unsigned int { RELATION_CHILD = 0, RELATION_PARENT = 1 };

// The only code that touches SDO objects and the data engine. A proxy wraps one object under construction or
// inspection, the child, and where needed a second one that becomes its parent in the data engine.
//
// A proxy lives on the stack of one thread for the span of one operation; its scratch fields are why it must
// not be shared. It frees what it allocated or cloned. What goes into the data engine is always a clone and
// passes to it. Results are the statuses of the libraries below, 0 for success, or 1 for a failure of its
// own, of which not every one is told in the log; nothing is thrown on purpose.
class SDOProxy
{
  public:
    // Owns a new, empty child.
    SDOProxy();
    // Wraps a child that stays the caller's.
    explicit SDOProxy(void* child);
    SDOProxy(const SDOProxy& other);
    // Clones what the other holds. What this proxy held is not freed, and lost if it was owned.
    SDOProxy& operator=(const SDOProxy& other);
    virtual ~SDOProxy();

    // Fills the table from type name to type code, once.
    static void initializeLookupTable();
    static const std::map<std::string, unsigned char>& getLookupTable() { return m_LookupTable; }

    void* getChildSDOConfigPtr() const { return m_pChildSDOConfig; }
    void* getParentSDOConfigPtr() const { return m_pParentSDOConfig; }
    // Take an object that stays the caller's, in the place of the present one; null only drops that.
    void setChildSDOConfigPtr(void* child);
    void setParentSDOConfigPtr(void* parent);
    // Own a clone. The present object is freed, owned or not. cloneSDOConfig leaves the parent for a null
    // one.
    void cloneChildSDOConfig(const void* child);
    void cloneParentSDOConfig(const void* parent);
    void cloneSDOConfig(const void* child, const void* parent);
    // A clone that the caller owns, null for null; and its end.
    void* cloneMyself(const void* object) const;
    void deleteClonedSDOObj(void* object) const;
    // Zeroes the scratch fields but that of the nexus.
    void resetPropertyDataType();

    // Adds a property to the child. `code` is an SDOTypeCode; `value` points at a value of its width, at a
    // std::string or a std::vector<unsigned int>, or is a nested SDO object, which passes to the child unless
    // the result tells a failure. A text is cut to 255 characters.
    int addProperty(unsigned int id, unsigned char code, const void* value);
    int addSpecificProperty(unsigned int id, unsigned char code, void* value);
    // Adds four bytes to any object. `type` is the type value that travels, not a type code.
    short addSpecificProperty(void* object, unsigned int id, unsigned char type, void* value);
    // Read four bytes of the child or of any object.
    short retrieveSpecificProperty(unsigned int id, void* out);
    short retrieveSpecificProperty(void* object, unsigned int id, void* out);
    // Reads a property of the child into the scratch field of its code and enters that field in the map under
    // the attribute's name. All attributes of one code share one field: consume the map before the next use.
    void getProperty(unsigned int id, unsigned char code, std::string attribName, AttribValMap* valueMap);

    // Fill the child from the attributes that are set on the object. Always 0: a failing property is skipped.
    int createSDOObject(IController& controller);
    int createSDOObject(CPhysicalDevice& disk);
    int createSDOObject(CVirtualDevice& drive);
    int createSDOObject(CAlert& alert);
    int createSDOObject(CControl_Notify& notify);

    // Insert a clone of the child under a clone of the parent, if there is one; send a clone of the child. A
    // clone that fails is handed on as null, and what the data engine says of it is the result.
    int insertIntoDataEngine();
    int sendAlertNotification();
    int removeFromDataEngine(void* object);
    // The upper object is named first.
    int createSDOLinkWithParent(void* upper);
    int createSDOLinkWithChild(void* lower);
    int createSDOParentChildLink();
    // Links the objects of a type that are associated with `object`: the one with this device id, or all of
    // them for NUMBER_UNKNOWN.
    int createLinkBetween(void* object, unsigned int objType, OBJECT_RELATION relation, unsigned int id);
    // Lists from the top for a null object. The list goes back through deleteAssociatedSDOObjects.
    int retrieveAssociatedSDOObjects(void* object, unsigned int objType, void*** list, unsigned int* count);
    int deleteAssociatedSDOObjects(void** list, unsigned int count);

    // Replace the child, which must be owned, by the data engine's object with the same key. Null on failure;
    // where the search was made, the former child is gone then too.
    void* retrieveSingleSDOObject(IController& controller);
    void* retrieveSingleSDOObject(CPhysicalDevice& disk);
    void* retrieveSingleSDOObject(CVirtualDevice& drive);

    // Set a model object's attributes from the data engine's object with the same key, which becomes the
    // proxy's child in the place of the present one. Status of the search; 1 without a search for a disk
    // whose device id is not known, and for every virtual disk, which is never read back.
    unsigned int retrieveObjectFromSDO(IController& controller);
    unsigned int retrieveObjectFromSDO(CPhysicalDevice& disk);
    unsigned int retrieveObjectFromSDO(CVirtualDevice& drive);

  private:
    static constexpr std::size_t TEXT_SIZE = 256;

    int createFromAttributes(AttribTypeMap& types, AttribValMap& values);
    // addProperty without the line that a failure ends in.
    int addByCode(unsigned int id, unsigned char code, const void* value);
    // Calls the visitor with the scratch field of a code of fixed width, its type value and its type's name.
    template <class Visitor>
    int visitScalar(unsigned char code, Visitor visit);
    // Adds a value of fixed width by way of its scratch field.
    template <class Scratch>
    int addScalar(unsigned int id, unsigned char typeValue, const char* typeName, const void* value,
                  Scratch& scratch);
    int addText(unsigned int id, const std::string& text);
    int addNexus(unsigned int id, const std::vector<unsigned int>& nexus);
    int addNested(unsigned int id, const void* object);
    // Reads a value of fixed width into its scratch field, which becomes the current value.
    int getScalar(unsigned int id, void* scratch, unsigned int size);
    int getNexus(unsigned int id);
    void cloneSDOProxy(const SDOProxy& other);
    template <class Fetch>
    void* retrieveByKey(const char* label, const char* missingKey, const char* failure, Fetch fetch);
    template <class Object, class Fetch>
    unsigned int readBack(Object& object, std::list<std::string> names, AttribTypeMap& types, Fetch fetch);

    void* m_pChildSDOConfig = nullptr;
    void* m_pParentSDOConfig = nullptr;
    bool m_bOwnChild = false;
    bool m_bOwnParent = false;
    unsigned int m_U32Value = 0;
    int m_S32Value = 0;
    unsigned short m_U16Value = 0;
    short m_S16Value = 0;
    unsigned long long m_U64Value = 0;
    signed char m_S8Value = 0;
    unsigned char m_U8Value = 0;
    char m_StringValue[TEXT_SIZE] = {};
    unsigned char m_BoolValue = 0;
    unsigned int m_BinaryValue = 0;
    std::vector<unsigned int> m_NexusValue;
    void* m_pCurrentValue = nullptr;

    static std::map<std::string, unsigned char> m_LookupTable;
    static bool m_bIsLookupTable;
};

} // namespace stg

#endif
