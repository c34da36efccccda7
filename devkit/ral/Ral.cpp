#include "ral/Ral.h"

#include "common/guarded.h"
#include "ral/identity.h"

#include <algorithm>
#include <memory>

namespace ral
{

namespace
{

// With the library itself, so that no call of it lacks the memory for this.
[[maybe_unused]] const Ral& LOADED = Ral::instance();

} // namespace

Ral& Ral::instance()
{
    static Ral& engine = *new Ral;
    return engine;
}

Ral::Ral()
    : faults{
          "RalInsertObject",          "RalDeleteObject", "RalLinkObjects",
          "RalListAssociatedObjects", "RalListFree",     "RalSendNotification",
      }
{
}

// `compose` gives the line up to the status, and is asked only when someone listens; how many objects were
// found may follow. What sinks are told is lost for want of memory, rather than the call.
template <class Compose>
void Ral::report(Compose compose, int status, std::optional<unsigned int> found)
{
    devkit::guarded([&] {
        if (callSink.isSet())
            callSink.call((compose() + " = " + std::to_string(status) +
                           (found ? ", " + std::to_string(*found) + " objects" : ""))
                              .c_str());
    });
}

void Ral::announce(const std::vector<ObjectStore::Change>& changes)
{
    for (const ObjectStore::Change& change : changes)
        devkit::guarded([&] {
            changeSink.call(change.kind, static_cast<const void*>(change.before.get()),
                            static_cast<const void*>(change.after.get()));
        });
}

// Counts a call and, unless it is to fail by plan, runs `act()` for its status, with the store locked. A lack
// of memory is a failure.
template <class Act>
int Ral::attempt(const char* call, Act act)
{
    if (const auto fault = faults.enter(call))
        return *fault;
    const std::lock_guard<std::mutex> storing(m_storing);
    return devkit::guarded(int{FAILED}, act);
}

int Ral::insertObject(void* object, void* parent)
{
    Handed handed(object);
    const Handed above(parent == object ? nullptr : parent);
    ObjectStore::Sdo inserted;
    const std::lock_guard<std::mutex> calling(m_calling);
    std::vector<ObjectStore::Change> changes;
    const int status = attempt("RalInsertObject", [&] {
        inserted = std::move(handed);
        return m_store.insert(inserted, parent, changes) ? 0 : UNKNOWN;
    });
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
        status, found);
    return status;
}

int Ral::makeList(const std::vector<ObjectStore::Sdo>& objects, void*** list, unsigned int* count)
{
    if (objects.empty())
        return 0;
    std::vector<Handed> copies;
    for (const ObjectStore::Sdo& object : objects) {
        copies.emplace_back(morlan_sdo_clone(object.get()));
        if (!copies.back())
            return FAILED;
    }
    // The caller may write to its list; what is to be freed is remembered apart from it.
    auto given = std::make_unique<void*[]>(copies.size());
    std::transform(copies.begin(), copies.end(), given.get(), [](const auto& copy) { return copy.get(); });
    m_lists.emplace(given.get(), std::move(copies));
    *count = static_cast<unsigned int>(objects.size());
    *list = given.release();
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
        m_lists.erase(found);
        delete[] list;
        return 0;
    });
    report([&] { return "RalListFree(" + std::to_string(count) + ")"; }, status);
    return status;
}

int Ral::sendNotification(void* object)
{
    const Handed sent(object);
    const std::lock_guard<std::mutex> calling(m_calling);
    int status = 0;
    if (const auto fault = faults.enter("RalSendNotification"))
        status = *fault;
    else if (object == nullptr)
        status = UNKNOWN;
    else
        status = devkit::guarded(int{FAILED}, [&] {
            notificationSink.call(static_cast<const void*>(object));
            return 0;
        });
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
