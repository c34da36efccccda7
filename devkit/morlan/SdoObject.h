// An SDO configuration object: a bag of properties in the order of their first addition, at most one per id.
// What the C functions hand out as an untyped handle is a pointer to one of these. Not synchronised: one
// object is for one thread at a time. A clone shares its content with the original until one of them changes,
// which may be in different threads.
#ifndef ZARNEK_DEVKIT_MORLAN_SDOOBJECT_H
#define ZARNEK_DEVKIT_MORLAN_SDOOBJECT_H

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace morlan
{

class SdoObject
{
  public:
    // One property. Scalars and texts are bytes; under type 13 the value is an object.
    struct Property {
        std::uint16_t id;
        std::uint8_t type;
        std::vector<unsigned char> bytes; // empty under type 13
        SdoObject* nested; // null but under type 13; owned by the object that holds the property
    };

    SdoObject();
    ~SdoObject();
    SdoObject(const SdoObject&) = delete;
    SdoObject& operator=(const SdoObject&) = delete;

    // The object behind a handle; null for a null handle, and for one whose memory does not look like an
    // object. A handle that was freed is caught by chance only.
    static SdoObject* fromHandle(void* handle);
    static const SdoObject* fromHandle(const void* handle);

    // A deep copy that belongs to nobody; null when the handle is none.
    static SdoObject* cloneOf(const void* handle);
    // Frees an object with all that it holds. False for no handle, and for a nested object, which goes with
    // the one that holds it.
    static bool free(void* handle);

    // Sets a property to a copy of `size` bytes; one that is there keeps its place.
    void set(std::uint16_t id, std::uint8_t type, const void* bytes, std::size_t size);
    // Sets a property to `nested`, which belongs to this object from then on. False, and nothing done, when
    // it belongs to an object already, or when this object would come to hold itself.
    bool setNested(std::uint16_t id, std::uint8_t type, SdoObject* nested);

    // Null when the id is absent.
    const Property* find(std::uint16_t id) const;
    const std::vector<Property>& properties() const { return m_content->properties; }
    // The same address for objects that share their content. While one of them keeps it, it does not change.
    const void* content() const { return m_content; }
    // True for an object that another one holds, and frees.
    bool isNested() const { return m_owner != nullptr; }

    // Objects in existence, in all threads.
    static unsigned int live();

  private:
    struct Content {
        std::vector<Property> properties;
        bool holdsObjects = false; // content with a nested object has one holder: the nested one's owner
        std::atomic<unsigned int> holders{1};
    };

    explicit SdoObject(Content& shared);
    std::unique_ptr<SdoObject> clone() const;
    void put(Property property);
    // The content, for a change: from now on this object's own.
    Content& ownContent();
    static void release(Content& content);

    std::uint32_t m_magic;
    const SdoObject* m_owner = nullptr;
    Content* m_content;
};

} // namespace morlan

#endif
