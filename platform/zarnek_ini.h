// The vocabulary of the two configuration files: what is read under which name, and the limits of the values.
#ifndef ZARNEK_PLATFORM_ZARNEK_INI_H
#define ZARNEK_PLATFORM_ZARNEK_INI_H

#include <cstddef>

// The private INI, which the support library finds by itself: [VendorID] Marvell=9 and
// [VendorLibName] Linux_9=NAME, the vendor library's file name without ".so".
constexpr char INI_VENDOR_ID_SECTION[] = "VendorID";
constexpr char INI_VENDOR_ID_KEY[] = "Marvell";
constexpr char INI_VENDOR_LIBRARY_SECTION[] = "VendorLibName";
constexpr char INI_VENDOR_LIBRARY_KEY_PREFIX[] = "Linux_"; // the vendor id stands behind it
constexpr char INI_LIBRARY_SUFFIX[] = ".so";               // added to the name by the plug-in
constexpr std::size_t INI_VALUE_LIMIT = 31;                // a longer value of the private INI is cut

// The alert mapping file, below the install path: a section for each kind of object, in which a vendor's
// event code has its alert number, and the number of the last event that was told.
constexpr char INI_ALERT_MAPPING_FILE[] = "/MarvelAlertMapping.ini";
constexpr char INI_ADAPTER_SECTION[] = "Adapter";
constexpr char INI_PHYSICAL_DISK_SECTION[] = "PhysicalDevice";
constexpr char INI_VIRTUAL_DISK_SECTION[] = "VirtualDevice";
constexpr char INI_SEQUENCE_SECTION[] = "EventSequenceNumber";
constexpr char INI_SEQUENCE_KEY[] = "SequenceNumber";
constexpr unsigned int INI_FIRST_ALERT_NUMBER = 2048; // a lower number counts as no mapping
constexpr unsigned int INI_NO_NUMBER = 0xFFFFFFFF;    // what a number reads as whose file or key is missing

#endif
