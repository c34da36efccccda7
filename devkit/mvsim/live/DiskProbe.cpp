#include "mvsim/live/DiskProbe.h"

#include "common/words.h"

#include <algorithm>
#include <cctype>

namespace mvsim
{

namespace
{

constexpr std::uint32_t DEFAULT_BLOCK_SIZE = 512;

struct LinkRate {
    const char* text; // how the kernel writes it
    std::uint8_t code;
    std::uint32_t features; // of a disk that can go so fast
};

constexpr LinkRate LINK_RATES[] = {
    {"1.5 Gbps", MV_SPEED_1_5G, MV_FEATURE_1_5G},
    {"3.0 Gbps", MV_SPEED_3G, MV_FEATURE_1_5G | MV_FEATURE_3G},
    {"6.0 Gbps", MV_SPEED_6G, MV_FEATURE_1_5G | MV_FEATURE_3G | MV_FEATURE_6G},
    {"12.0 Gbps", MV_SPEED_12G, MV_FEATURE_1_5G | MV_FEATURE_3G | MV_FEATURE_6G | MV_FEATURE_12G},
};

const LinkRate* findRate(const std::optional<std::string>& text)
{
    const auto* rate = std::find_if(std::begin(LINK_RATES), std::end(LINK_RATES),
                                    [&text](const LinkRate& row) { return text == row.text; });
    return rate == std::end(LINK_RATES) ? nullptr : rate;
}

bool isWholeDisk(const std::string& name, const SysfsFolder& folder)
{
    // Some of these have a device folder, but none is a disk that could fail or join an array.
    constexpr const char* OTHER_KINDS[] = {"loop", "ram", "zram", "dm-", "md", "sr", "fd"};
    for (const char* kind : OTHER_KINDS)
        if (devkit::startsWith(name, kind))
            return false;
    const bool emptyDrive =
        folder.number("removable").value_or(0) != 0 && folder.number("size").value_or(1) == 0;
    return folder.below("device").exists() && folder.number("hidden").value_or(0) == 0 && !emptyDrive;
}

// Whether the kernel has given a disk up: nothing reaches it, although its folders are still there.
bool isLost(const SysfsFolder& device)
{
    constexpr const char* LOST_STATES[] = {"offline", "transport-offline", "dead"};
    return std::any_of(std::begin(LOST_STATES), std::end(LOST_STATES),
                       [state = device.text("state")](const char* lost) { return state == lost; });
}

// The unit serial number page of a SCSI or ATA disk: its length in the fourth byte, the text behind that.
std::optional<std::string> serialPage(const SysfsFolder& device)
{
    constexpr std::size_t HEADER = 4;
    const std::string page = device.bytes("vpd_pg80").value_or("");
    if (page.size() <= HEADER)
        return std::nullopt;
    std::string serial = page.substr(HEADER, static_cast<unsigned char>(page[HEADER - 1]));
    serial.erase(std::remove_if(serial.begin(), serial.end(),
                                [](char c) { return std::isgraph(static_cast<unsigned char>(c)) == 0; }),
                 serial.end());
    return serial.empty() ? std::nullopt : std::optional<std::string>(serial);
}

template <class Value>
std::optional<Value> firstOf(std::initializer_list<std::optional<Value>> candidates)
{
    for (const auto& candidate : candidates)
        if (candidate)
            return candidate;
    return std::nullopt;
}

std::string modelOf(const std::string& name, const SysfsFolder& device)
{
    const auto model = device.text("model");
    if (!model)
        return name;
    // Behind ATA there is no vendor field, and on a PCI or virtio device the file holds a number.
    const auto vendor = device.text("vendor");
    const bool names = vendor && *vendor != "ATA" && !devkit::startsWith(*vendor, "0x");
    return names ? *vendor + " " + *model : *model;
}

// Bus and link speed, as far as the place of the device in the machine tells.
void readLink(const SysfsFolder& device, Disk& disk)
{
    const std::filesystem::path path = device.resolved();
    std::filesystem::path walked;
    for (const auto& part : path) {
        walked /= part;
        const std::string name = part.string();
        if (devkit::startsWith(name, "end_device-") || devkit::startsWith(name, "expander-")) {
            disk.info.LinkFlags = MV_LINK_SAS;
        } else if (devkit::startsWith(name, "ata") && name.size() > 3 && devkit::isDigit(name[3])) {
            disk.info.LinkFlags = MV_LINK_SATA;
            const std::string link = "link" + name.substr(3);
            const SysfsFolder speeds = SysfsFolder(walked).below(link).below("ata_link").below(link);
            const LinkRate* current = findRate(speeds.text("sata_spd"));
            const LinkRate* best = findRate(speeds.text("hw_sata_spd_limit"));
            disk.config.LinkSpeed = current != nullptr ? current->code : 0;
            best = best != nullptr ? best : current;
            disk.info.FeatureFlags |= best != nullptr ? best->features : 0;
        }
    }
}

void readSasAddress(const SysfsFolder& device, Disk& disk)
{
    const std::string address = device.text("sas_address").value_or("");
    if (disk.info.LinkFlags != MV_LINK_SAS || !devkit::startsWith(address, "0x"))
        return;
    const auto bytes = devkit::bytesOfHex(std::string_view(address).substr(2));
    if (bytes && bytes->size() == sizeof disk.info.SASAddress)
        putText(disk.info.SASAddress, *bytes);
}

std::uint64_t partitionedKB(const std::string& name, const SysfsFolder& folder)
{
    std::uint64_t sum = 0;
    for (const std::string& entry : folder.entries()) {
        const SysfsFolder partition = folder.below(entry);
        if (devkit::startsWith(entry, name) && partition.number("partition"))
            sum += partition.kilobytes("size").value_or(0);
    }
    return sum;
}

SeenDisk probeDisk(const std::string& name, const SysfsFolder& folder)
{
    const SysfsFolder device = folder.below("device");
    SeenDisk seen;
    seen.name = name;
    const auto wwid = firstOf<std::string>({folder.text("wwid"), device.text("wwid")});
    const auto serial =
        firstOf<std::string>({device.text("serial"), folder.text("serial"), serialPage(device)});
    const std::string model = modelOf(name, device);
    seen.identity = wwid ? *wwid : serial ? model + " " + *serial : name;
    seen.usedKB = partitionedKB(name, folder);

    Disk& disk = seen.device;
    putText(disk.info.ModelText, model);
    putText(disk.info.SerialText, serial.value_or(""));
    putText(disk.info.RevisionText,
            firstOf<std::string>({device.text("rev"), device.text("firmware_rev")}).value_or(""));
    readLink(device, disk);
    readSasAddress(device, disk);
    if (folder.text("queue/write_cache") == "write back")
        disk.info.FeatureFlags |= MV_FEATURE_WRITE_CACHE;
    disk.info.SizeKB = folder.kilobytes("size").value_or(0);
    disk.info.BlockSize =
        static_cast<std::uint32_t>(folder.number("queue/logical_block_size").value_or(DEFAULT_BLOCK_SIZE));
    disk.info.MediaFlags = folder.number("queue/rotational") == 0U ? MV_MEDIA_SSD : 0;
    disk.raidStatus.RaidStatusFlags = isLost(device) ? MV_DISK_BAD : MV_DISK_READY;
    return seen;
}

} // namespace

std::vector<SeenDisk> probeDisks(const SysfsFolder& root)
{
    std::vector<SeenDisk> disks;
    const SysfsFolder block = root.below("block");
    for (const std::string& name : block.entries()) {
        const SysfsFolder folder = block.below(name);
        if (isWholeDisk(name, folder))
            disks.push_back(probeDisk(name, folder));
    }
    return disks;
}

} // namespace mvsim
