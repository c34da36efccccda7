#include "Objects.h"

#include "morlan/morlan_inspect.h"
#include "ral/ral_inspect.h"

#include <morlan.h>
#include <ral.h>

#include <cstdio>
#include <cstring>
#include <optional>

namespace
{

struct Family {
    const char* prefix;
    std::uint32_t type;
    unsigned short member; // property with the number within the controller
};

constexpr Family FAMILIES[] = {
    {"ctl", SDO_OBJTYPE_CONTROLLER, SSPROP_NONE},
    {"pd", SDO_OBJTYPE_PHYSICAL_DISK, SSPROP_SLOTNUM_U32},
    {"vd", SDO_OBJTYPE_VIRTUAL_DISK, SSPROP_LOGICALDRIVENUM_U32},
};

std::optional<std::uint32_t> number(const void* object, unsigned short id)
{
    std::uint32_t value = 0;
    unsigned int size = sizeof value;
    if (SMSDOConfigGetDataByID(object, id, 0, &value, &size) != 0)
        return std::nullopt;
    return value;
}

void* makeOrNull(const std::string& name)
{
    return name.empty() ? nullptr : make(name);
}

} // namespace

void addU32(void* object, unsigned short id, std::uint32_t value)
{
    EXPECT_EQ(SMSDOConfigAddData(object, id, SDO_TYPE_U32, &value, sizeof value, 1), 0);
}

void* make(const std::string& name, std::uint32_t status)
{
    void* const object = SMSDOConfigAlloc();
    char prefix[4] = {};
    unsigned int controller = 0;
    unsigned int member = 0;
    std::sscanf(name.c_str(), "%3[a-z]%u.%u", prefix, &controller, &member);
    for (const Family& family : FAMILIES) {
        if (std::strcmp(prefix, family.prefix) != 0)
            continue;
        std::vector<std::uint32_t> nexus{SSPROP_GLOBALCONTROLLERNUM_U32};
        addU32(object, SSPROP_OBJTYPE_U32, family.type);
        addU32(object, SSPROP_VILNUMBER_U32, SDO_VIL_NUMBER);
        addU32(object, SSPROP_STATUS_U32, status);
        addU32(object, SSPROP_GLOBALCONTROLLERNUM_U32, controller);
        if (family.member != SSPROP_NONE) {
            nexus.push_back(family.member);
            addU32(object, family.member, member);
        }
        const auto size = static_cast<unsigned int>(nexus.size() * sizeof nexus[0]);
        SMSDOConfigAddData(object, SSPROP_NEXUS_U32, SDO_TYPE_NEXUS_U32, nexus.data(), size, 1);
    }
    return object;
}

std::string nameOf(const void* object)
{
    if (object == nullptr)
        return "none";
    const std::optional<std::uint32_t> type = number(object, SSPROP_OBJTYPE_U32);
    const std::optional<std::uint32_t> controller = number(object, SSPROP_GLOBALCONTROLLERNUM_U32);
    const std::uint32_t status = number(object, SSPROP_STATUS_U32).value_or(0);
    for (const Family& family : FAMILIES)
        if (type == family.type && controller) {
            std::string name = family.prefix + std::to_string(*controller);
            if (family.member != SSPROP_NONE)
                name += '.' + std::to_string(number(object, family.member).value_or(0));
            return status == 0 ? name : name + ':' + std::to_string(status);
        }
    return "?";
}

int insertObject(const std::string& name, const std::string& parent, std::uint32_t status)
{
    return RalInsertObject(make(name, status), makeOrNull(parent));
}

int linkObjects(const std::string& upper, const std::string& lower)
{
    void* const above = make(upper);
    void* const below = make(lower);
    const int status = RalLinkObjects(above, below);
    morlan_sdo_free(above);
    morlan_sdo_free(below);
    return status;
}

std::string listObjects(const std::string& name, unsigned int type)
{
    void* const object = makeOrNull(name);
    void** objects = nullptr;
    unsigned int count = 0;
    const int status = RalListAssociatedObjects(object, type, &objects, &count);
    morlan_sdo_free(object);
    std::string names;
    for (unsigned int i = 0; i < count; ++i)
        names += (i == 0 ? "" : " ") + nameOf(objects[i]);
    EXPECT_EQ(objects == nullptr, count == 0);
    EXPECT_EQ(RalListFree(objects, count), 0);
    return status == 0 ? names : std::to_string(status);
}

std::vector<std::string> content()
{
    std::vector<std::string> result;
    ral_snapshot* const snapshot = ral_snapshot_create();
    const auto nameAt = [snapshot](int index) {
        return index < 0 ? "" : nameOf(ral_snapshot_object(snapshot, static_cast<unsigned int>(index)));
    };
    for (unsigned int i = 0; i < ral_snapshot_count(snapshot); ++i) {
        std::string line = nameAt(static_cast<int>(i)) + '<' + nameAt(ral_snapshot_parent(snapshot, i));
        for (unsigned int below = 0; below < ral_snapshot_link_count(snapshot, i); ++below)
            line += " [" + nameAt(ral_snapshot_link(snapshot, i, below)) + ']';
        if (ral_snapshot_insertions(snapshot, i) != 1)
            line += " x" + std::to_string(ral_snapshot_insertions(snapshot, i));
        result.push_back((ral_snapshot_incomplete(snapshot, i) != 0 ? "!" : "") + line);
    }
    ral_snapshot_destroy(snapshot);
    return result;
}

void RalTest::TearDown()
{
    EXPECT_EQ(ral_live_lists(), 0U);
    ral_reset();
    morlan_reset();
    EXPECT_EQ(morlan_live_sdo_objects(), 0U);
}
