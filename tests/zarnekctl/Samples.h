// Objects made by hand, as the data engine would hold them.
#ifndef ZARNEK_TESTS_ZARNEKCTL_SAMPLES_H
#define ZARNEK_TESTS_ZARNEKCTL_SAMPLES_H

#include "sdo.h"
#include "zarnekctl/System.h"

zarnekctl::Property u32(unsigned int id, std::uint32_t value);
zarnekctl::Property u64(unsigned int id, std::uint64_t value);
zarnekctl::Property text(unsigned int id, const std::string& value);
zarnekctl::Property nexus(const std::vector<std::uint32_t>& ids);

zarnekctl::Object sampleController(std::uint32_t number);
zarnekctl::Object sampleDisk(std::uint32_t controller, std::uint32_t slot, std::uint32_t state,
                             std::uint32_t status);
zarnekctl::Object sampleVirtualDisk(std::uint32_t controller, std::uint32_t drive, std::uint32_t state,
                                    std::uint32_t status);
// What a disk that is refreshed singly arrives as: three values and no identity.
zarnekctl::Object sampleSingleDisk(std::uint32_t controller, std::uint32_t slot);
// The alert that the plug-in sends about a disk in a slot.
zarnekctl::Object sampleDiskAlert(std::uint32_t number, std::uint32_t slot);

// Controller 0 with three disks, one of them failed, and a degraded RAID 5 that is linked with them; a disk
// that lost its controller, and a disk without identity.
zarnekctl::System sampleSystem();

// The object with another value for a property, or with one more property.
zarnekctl::Object with(zarnekctl::Object object, const zarnekctl::Property& property);
zarnekctl::Object without(zarnekctl::Object object, unsigned int id);

#endif
