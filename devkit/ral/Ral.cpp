#include "ral/Ral.h"

#include "morlan/morlan_inspect.h"
#include "ral/identity.h"

#include <algorithm>
#include <memory>
#include <new>

namespace ral
{

namespace
{

// An SDO object that was handed over.
ObjectStore::Sdo owned(void* object)
{
    return ObjectStore::Sdo(object, morlan_sdo_free);
}

} // namespace

Ral& Ral::instance()
{
    static Ral& engine = *new Ral;
    return engine;
}

Ral::Ral()
    : faults{
          {"RalInsertObject", true},          {"RalDeleteObject", true}, {"RalLinkObjects", true},
          {"RalListAssociatedObjects", true}, {"RalListFree", true},     {"RalSendNotification", true},
      }
{
}

// `compose` gives the line up to the status, and is asked only when someone listens; `remark` follows the
// status.
template <class Compose>
void Ral::report(Compose compose, int status, const std::string& remark)
{
    if (callSink.isSet())
        callSink.call((compose() + " = " + std::to_string(status) + remark).c_str());
}

void Ral::announce(const std::vector<ObjectStore::Change>& changes)
{
    for (const ObjectStore::Change& change : changes)
        changeSink.call(change.kind, static_cast<const void*>(change.before.get()),
                        static_cast<const void*>(change.after.get()));
}

// Counts a call and, unless it is to fail by plan, runs `act()` for its status, with the store locked.
template <class Act>
int Ral::attempt(const char* call, Act act)
{
    if (const auto fault = faults.enter(call))
        return *fault;
    const std::lock_guard<std::mutex> storing(m_storing);
    return act();
}

int Ral::insertObject(void* object, void* parent)
{
    const ObjectStore::Sdo inserted = owned(object);
    const ObjectStore::Sdo above = parent == object ? inserted : owned(parent);
    const std::lock_guard<std::mutex> calling(m_calling);
    std::vector<ObjectStore::Change> changes;
    const int status =
        attempt("RalInsertObject", [&] { return m_store.insert(inserted, parent, changes) ? 0 : UNKNOWN; });
    announce(changes);
    report(
        [&] {
            return "RalInsertObject(" + describe(object) + ", under " +
                   (parent == nullptr ? "none" : describe(parent)) + ")";
        },
        status);
    return status;
}

int Ral::deleteObject(void* object, int arg1, int arg2)
{
    const std::lock_guard<std::mutex> calling(m_calling);
    std::vector<ObjectStore::Change> changes;
    const int status =
        attempt("RalDeleteObject", [&] { return m_store.remove(object, changes) ? 0 : UNKNOWN; });
    announce(changes);
    report(
        [&] {
            return "RalDeleteObject(" + describe(object) + ", " + std::to_string(arg1) + ", " +
                   std::to_string(arg2) + ")";
        },
        status);
    return status;
}

int Ral::linkObjects(void* upper, void* lower)
{
    const std::lock_guard<std::mutex> calling(m_calling);
    const int status = attempt("RalLinkObjects", [&] { return m_store.link(upper, lower) ? 0 : UNKNOWN; });
    report([&] { return "RalLinkObjects(" + describe(upper) + ", " + describe(lower) + ")"; }, status);
    return status;
}

int Ral::listAssociatedObjects(void* object, unsigned int type, void*** list, unsigned int* count)
{
    const std::lock_guard<std::mutex> calling(m_calling);
    unsigned int found = 0;
    const int status = attempt("RalListAssociatedObjects", [&] {
        if (list == nullptr || count == nullptr)
            return FAILED;
        *list = nullptr;
        *count = 0;
        std::vector<ObjectStore::Sdo> objects;
        if (!m_store.listAssociated(object, type, objects))
            return UNKNOWN;
        const int made = makeList(objects, list, count);
        found = *count;
        return made;
    });
    report(
        [&] {
            return "RalListAssociatedObjects(" + std::to_string(type) + ", of " +
                   (object == nullptr ? "top" : describe(object)) + ")";
        },
        status, ", " + std::to_string(found) + " objects");
    return status;
}

int Ral::makeList(const std::vector<ObjectStore::Sdo>& objects, void*** list, unsigned int* count)
{
    if (objects.empty())
        return 0;
    std::vector<void*> copies;
    for (const ObjectStore::Sdo& object : objects)
        copies.push_back(morlan_sdo_clone(object.get()));
    if (std::find(copies.begin(), copies.end(), nullptr) != copies.end()) {
        std::for_each(copies.begin(), copies.end(), morlan_sdo_free);
        return FAILED;
    }
    // The caller may write to its list; what is to be freed is remembered apart from it.
    *list = new void*[copies.size()];
    std::copy(copies.begin(), copies.end(), *list);
    *count = static_cast<unsigned int>(copies.size());
    m_lists.emplace(*list, std::move(copies));
    return 0;
}

int Ral::listFree(void** list, unsigned int count)
{
    const std::lock_guard<std::mutex> calling(m_calling);
    const int status = attempt("RalListFree", [&] {
        if (list == nullptr && count == 0)
            return 0;
        const auto found = m_lists.find(list);
        if (found == m_lists.end() || found->second.size() != count)
            return UNKNOWN;
        std::for_each(found->second.begin(), found->second.end(), morlan_sdo_free);
        m_lists.erase(found);
        delete[] list;
        return 0;
    });
    report([&] { return "RalListFree(" + std::to_string(count) + ")"; }, status);
    return status;
}

int Ral::sendNotification(void* object)
{
    const ObjectStore::Sdo sent = owned(object);
    const std::lock_guard<std::mutex> calling(m_calling);
    int status = 0;
    if (const auto fault = faults.enter("RalSendNotification"))
        status = *fault;
    else if (object == nullptr)
        status = UNKNOWN;
    else
        notificationSink.call(static_cast<const void*>(object));
    report([&] { return "RalSendNotification(" + describeNotification(object) + ")"; }, status);
    return status;
}

unsigned int Ral::incomplete() const
{
    const std::lock_guard<std::mutex> storing(m_storing);
    return m_store.incomplete();
}

std::vector<SnapshotEntry> Ral::snapshot() const
{
    const std::lock_guard<std::mutex> storing(m_storing);
    return m_store.snapshot();
}

unsigned int Ral::liveLists() const
{
    const std::lock_guard<std::mutex> storing(m_storing);
    return static_cast<unsigned int>(m_lists.size());
}

void Ral::reset()
{
    changeSink.set(nullptr, nullptr);
    notificationSink.set(nullptr, nullptr);
    callSink.set(nullptr, nullptr);
    faults.reset();
    const std::lock_guard<std::mutex> storing(m_storing);
    m_store.clear();
}

} // namespace ral
