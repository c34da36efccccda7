#include "mvsim/live/ArrayProbe.h"

#include "common/words.h"

namespace mvsim
{

namespace
{

constexpr std::string_view MEMBER_PREFIX = "dev-";

MdMember probeMember(const std::string& name, const SysfsFolder& folder)
{
    const std::filesystem::path device = folder.below("block").resolved();
    MdMember member;
    member.name = name;
    member.device = device.filename().string();
    member.holder = device.parent_path().filename().string();
    member.state = folder.text("state").value_or("");
    member.slot = folder.number("slot");
    member.sizeKB = folder.number("size");
    return member;
}

MdArray probeArray(const std::string& name, const SysfsFolder& folder)
{
    const SysfsFolder md = folder.below("md");
    MdArray array;
    array.name = name;
    array.deviceNumber = folder.text("dev").value_or("");
    array.level = md.text("level").value_or("");
    array.metadata = md.text("metadata_version").value_or("");
    array.state = md.text("array_state").value_or("");
    array.action = md.text("sync_action").value_or("");
    array.completed = md.text("sync_completed").value_or("");
    array.degraded = md.number("degraded");
    array.raidDisks = md.number("raid_disks");
    array.layout = md.number("layout");
    array.componentKB = md.number("component_size");
    array.chunkBytes = md.number("chunk_size");
    array.sizeKB = folder.kilobytes("size");
    for (const std::string& entry : md.entries())
        if (devkit::startsWith(entry, MEMBER_PREFIX))
            array.members.push_back(probeMember(entry.substr(MEMBER_PREFIX.size()), md.below(entry)));
    return array;
}

} // namespace

std::vector<MdArray> probeArrays(const SysfsFolder& root)
{
    std::vector<MdArray> arrays;
    const SysfsFolder block = root.below("block");
    for (const std::string& name : block.entries())
        if (devkit::startsWith(name, "md") && block.below(name).below("md").exists())
            arrays.push_back(probeArray(name, block.below(name)));
    return arrays;
}

} // namespace mvsim
