#include "morlan/SdoObject.h"

#include <algorithm>
#include <atomic>

namespace morlan
{

namespace
{

constexpr std::uint32_t MAGIC = 0x53444f43;

std::atomic<unsigned int> g_live{0};

} // namespace

SdoObject::SdoObject() : m_magic(MAGIC), m_content(new Content)
{
    ++g_live;
}

SdoObject::SdoObject(Content& shared) : m_magic(MAGIC), m_content(&shared)
{
    ++shared.holders;
    ++g_live;
}

SdoObject::~SdoObject()
{
    release(*m_content);
    // The compiler may drop a plain store to an object that is going.
    *const_cast<volatile std::uint32_t*>(&m_magic) = 0;
    --g_live;
}

SdoObject* SdoObject::fromHandle(void* handle)
{
    return const_cast<SdoObject*>(fromHandle(static_cast<const void*>(handle)));
}

const SdoObject* SdoObject::fromHandle(const void* handle)
{
    const auto* const object = static_cast<const SdoObject*>(handle);
    return object != nullptr && object->m_magic == MAGIC ? object : nullptr;
}

SdoObject* SdoObject::cloneOf(const void* handle)
{
    const SdoObject* const original = fromHandle(handle);
    return original == nullptr ? nullptr : original->clone().release();
}

bool SdoObject::free(void* handle)
{
    SdoObject* const object = fromHandle(handle);
    if (object == nullptr || object->isNested())
        return false;
    delete object;
    return true;
}

std::unique_ptr<SdoObject> SdoObject::clone() const
{
    if (!m_content->holdsObjects)
        return std::unique_ptr<SdoObject>(new SdoObject(*m_content));
    auto copy = std::make_unique<SdoObject>();
    Content& content = *copy->m_content;
    content.holdsObjects = true;
    content.properties.reserve(properties().size());
    for (const Property& property : properties()) {
        std::unique_ptr<SdoObject> nested;
        if (property.nested != nullptr) {
            nested = property.nested->clone();
            nested->m_owner = copy.get();
        }
        content.properties.push_back({property.id, property.type, property.bytes, nested.get()});
        static_cast<void>(nested.release()); // the copy owns it now
    }
    return copy;
}

void SdoObject::set(std::uint16_t id, std::uint8_t type, const void* bytes, std::size_t size)
{
    const auto* const first = static_cast<const unsigned char*>(bytes);
    put({id, type, std::vector<unsigned char>(first, first + size), nullptr});
}

bool SdoObject::setNested(std::uint16_t id, std::uint8_t type, SdoObject* nested)
{
    if (nested->isNested())
        return false;
    for (const SdoObject* holder = this; holder != nullptr; holder = holder->m_owner)
        if (holder == nested)
            return false;
    put({id, type, {}, nested});
    nested->m_owner = this;
    return true;
}

const SdoObject::Property* SdoObject::find(std::uint16_t id) const
{
    const auto found = std::find_if(properties().begin(), properties().end(),
                                    [id](const Property& property) { return property.id == id; });
    return found == properties().end() ? nullptr : &*found;
}

unsigned int SdoObject::live()
{
    return g_live;
}

void SdoObject::put(Property property)
{
    Content& content = ownContent();
    content.holdsObjects |= property.nested != nullptr;
    const auto found =
        std::find_if(content.properties.begin(), content.properties.end(),
                     [&property](const Property& present) { return present.id == property.id; });
    if (found == content.properties.end()) {
        content.properties.push_back(std::move(property));
        return;
    }
    delete found->nested;
    *found = std::move(property);
}

SdoObject::Content& SdoObject::ownContent()
{
    if (m_content->holders != 1) {
        auto own = std::make_unique<Content>();
        own->properties = properties();
        release(*m_content);
        m_content = own.release();
    }
    return *m_content;
}

void SdoObject::release(Content& content)
{
    if (--content.holders != 0)
        return;
    for (const Property& property : content.properties)
        delete property.nested;
    delete &content;
}

} // namespace morlan
