// The vocabulary of objects in the data engine: property ids, object types, the codes that properties hold,
// and the type values under which their data travels. Fixed numbers of that interface.
#ifndef ZARNEK_PLATFORM_SDO_H
#define ZARNEK_PLATFORM_SDO_H

// Object types.
constexpr unsigned int SDO_OBJTYPE_CONTROLLER = 769;
constexpr unsigned int SDO_OBJTYPE_PHYSICAL_DISK = 772;
constexpr unsigned int SDO_OBJTYPE_VIRTUAL_DISK = 773;

// Type values of SMSDOConfigAddData.
constexpr unsigned char SDO_TYPE_BOOLN = 1;
constexpr unsigned char SDO_TYPE_S8 = 2;
constexpr unsigned char SDO_TYPE_S16 = 3;
constexpr unsigned char SDO_TYPE_S32 = 4;
constexpr unsigned char SDO_TYPE_U8 = 6;
constexpr unsigned char SDO_TYPE_U16 = 7;
constexpr unsigned char SDO_TYPE_U32 = 8;
constexpr unsigned char SDO_TYPE_U64 = 9;
constexpr unsigned char SDO_TYPE_ASTRING = 10; // a zero-terminated text in a block of 256 bytes
constexpr unsigned char SDO_TYPE_SDOCONFIG = 13;
constexpr unsigned char SDO_TYPE_NEXUS_U32 = SDO_TYPE_U32 | 0x10;
constexpr unsigned char SDO_TYPE_BINARY_DATA = SDO_TYPE_U32 | 0x80;

// The plug-in's number among the data engine's vendor layers. The private INI and command 20 know the vendor
// by the same number.
constexpr unsigned int SDO_VIL_NUMBER = 9;

// SSPROP_STATUS_U32: how well an object is.
constexpr unsigned int SDO_STATUS_UNKNOWN = 1;
constexpr unsigned int SDO_STATUS_OK = 2;
constexpr unsigned int SDO_STATUS_WARNING = 3;
constexpr unsigned int SDO_STATUS_CRITICAL = 4;

// SSPROP_STATE_U32: single bits, of which some mean something else on a virtual disk.
constexpr unsigned int SDO_STATE_UNSTATED = 0;
constexpr unsigned int SDO_STATE_READY = 0x1;
constexpr unsigned int SDO_STATE_ONLINE = 0x4;
constexpr unsigned int SDO_STATE_FAILED = 0x8;
constexpr unsigned int SDO_VDSTATE_OPTIMAL = 0x1;
constexpr unsigned int SDO_VDSTATE_OFFLINE = 0x8;
constexpr unsigned int SDO_VDSTATE_DEGRADED = 0x20;
constexpr unsigned int SDO_VDSTATE_FAILED = 0x100000;
constexpr unsigned int SDO_VDSTATE_CHECKING = 0x800000;
constexpr unsigned int SDO_VDSTATE_INITIALISING = 0x10000000;

// SSPROP_RAIDMODE_U32: a single bit for each level.
constexpr unsigned int SDO_RAID_0 = 0x2;
constexpr unsigned int SDO_RAID_1 = 0x4;
constexpr unsigned int SDO_RAID_5 = 0x40;
constexpr unsigned int SDO_RAID_6 = 0x80;
constexpr unsigned int SDO_RAID_10 = 0x200;
constexpr unsigned int SDO_RAID_50 = 0x800;
constexpr unsigned int SDO_RAID_NONE = 0x4000;
constexpr unsigned int SDO_RAID_60 = 0x40000;
constexpr unsigned int SDO_RAID_OTHER = 0x80000; // no level of its own either

// SSPROP_BUSPROTOCOL_U32 and SSPROP_MEDIA_U32.
constexpr unsigned int SDO_BUS_SATA = 7;
constexpr unsigned int SDO_BUS_SAS = 8;
constexpr unsigned int SDO_MEDIA_HDD = 1;
constexpr unsigned int SDO_MEDIA_SSD = 2;

// SSPROP_CAPABLESPEED_U32 and SSPROP_NEGOTIATEDSPEED_U32: 1024 for one Gbit/s.
constexpr unsigned int SDO_SPEED_NONE = 0;
constexpr unsigned int SDO_SPEED_1_5G = 1536;
constexpr unsigned int SDO_SPEED_3G = 3072;
constexpr unsigned int SDO_SPEED_6G = 6144;
constexpr unsigned int SDO_SPEED_12G = 12288;

// SSPROP_WRITEPOLICY_U32 and SSPROP_VDDISKCACHEPOLICY_U32.
constexpr unsigned int SDO_WRITEPOLICY_THROUGH = 4;
constexpr unsigned int SDO_WRITEPOLICY_BACK = 8;
constexpr unsigned int SDO_VDDISKCACHE_OFF = 2;
constexpr unsigned int SDO_VDDISKCACHE_ON = 4;

// SSPROP_NOTIFYTYPE_U32: the one type of the plug-in's notifications.
constexpr unsigned int SDO_NOTIFYTYPE_ALERT = 3070;

// Property ids. An attribute without a property bears the id 0.
constexpr unsigned int SSPROP_NONE = 0;
constexpr unsigned int SSPROP_OBJTYPE_U32 = 24576;           // object type, one of the SDO_OBJTYPE numbers
constexpr unsigned int SSPROP_ATTRIBUTEMASK_U32 = 24577;     // attribute mask
constexpr unsigned int SSPROP_MASTERMETHODMASK_U32 = 24578;  // master method mask
constexpr unsigned int SSPROP_CURRENTMETHODMASK_U32 = 24579; // current method mask
constexpr unsigned int SSPROP_STATE_U32 = 24580;             // state code
constexpr unsigned int SSPROP_STATUS_U32 = 24581;            // health status code
constexpr unsigned int SSPROP_CONTROLLERID_U32 = 24582;      // the vendor's index of the controller
constexpr unsigned int SSPROP_VILNUMBER_U32 = 24583;     // number of the vendor layer that owns the object
constexpr unsigned int SSPROP_NAME_ASTRING = 24587;      // product name, or the name of a virtual disk
constexpr unsigned int SSPROP_FWVERSION_ASTRING = 24594; // firmware version
constexpr unsigned int SSPROP_SIZE_U64 = 24595;          // size or capacity in bytes
constexpr unsigned int SSPROP_CACHEMEMSIZE_U32 = 24596;  // cache memory size
constexpr unsigned int SSPROP_REBUILDRATE_U32 = 24597;   // rebuild rate, percent
constexpr unsigned int SSPROP_GLOBALCONTROLLERNUM_U32 = 24600; // global controller number
constexpr unsigned int SSPROP_SLOTID_U32 = 24601;              // slot of a controller
constexpr unsigned int SSPROP_PRODUCTID_ASTRING = 24614;       // product id
constexpr unsigned int SSPROP_USEDRAIDDISKSPACE_U64 = 24615;   // bytes in RAID use
constexpr unsigned int SSPROP_DISKGROUPNUM_U32 = 24616;        // disk group number
constexpr unsigned int SSPROP_FREERAIDDISKSPACE_U64 = 24621;   // bytes free for RAID use
constexpr unsigned int SSPROP_VENDOR_ASTRING = 24623;          // vendor
constexpr unsigned int SSPROP_REVISION_ASTRING = 24624;        // firmware revision of a disk
constexpr unsigned int SSPROP_READPOLICY_U32 = 24626;          // read policy of a virtual disk
constexpr unsigned int SSPROP_WRITEPOLICY_U32 = 24627;         // write policy of a virtual disk
constexpr unsigned int SSPROP_PDDISKCACHEPOLICY_U32 = 24628;   // disk cache policy of a physical disk
constexpr unsigned int SSPROP_LOGICALDRIVENUM_U32 = 24629;     // logical drive number
constexpr unsigned int SSPROP_RAIDMODE_U32 = 24631;            // RAID level, a single bit
constexpr unsigned int SSPROP_STRIPEBLOCKSIZE_U32 = 24632;     // stripe size
constexpr unsigned int SSPROP_SERIALNUM_ASTRING = 24656;       // serial number
constexpr unsigned int SSPROP_DEVWRITECACHE_U32 = 24666;       // write cache of a disk
constexpr unsigned int SSPROP_VDCOUNT_U32 = 24667;             // number of virtual disks
constexpr unsigned int SSPROP_HOTSPARE_U32 = 24673;            // hot spare code
constexpr unsigned int SSPROP_CONTROLNOTIFY_SDO = 24678; // nested object that names what an alert concerns
constexpr unsigned int SSPROP_NOTIFYTYPE_U32 = 24680;    // notification type
constexpr unsigned int SSPROP_ALERTNUMBER_U32 = 24685;   // alert number
constexpr unsigned int SSPROP_NEXUS_U32 = 24692; // ids of the properties that together identify the object
constexpr unsigned int SSPROP_DRIVERVER_ASTRING = 24741;        // driver version
constexpr unsigned int SSPROP_NEGOTIATEDSPEED_U32 = 24765;      // link speed in use, 1024 for one Gbit/s
constexpr unsigned int SSPROP_CAPABLESPEED_U32 = 24766;         // highest link speed, 1024 for one Gbit/s
constexpr unsigned int SSPROP_BUSPROTOCOL_U32 = 24768;          // bus protocol code
constexpr unsigned int SSPROP_MODELNUM_U32 = 24777;             // model number of a controller
constexpr unsigned int SSPROP_REPLACEMENTSTR01_ASTRING = 24786; // text that an alert's message takes in
constexpr unsigned int SSPROP_REPLACEMENTSTR02_ASTRING = 24787;
constexpr unsigned int SSPROP_REPLACEMENTSTR03_ASTRING = 24788;
constexpr unsigned int SSPROP_REPLACEMENTSTR04_ASTRING = 24789;
constexpr unsigned int SSPROP_REPLACEMENTSTR05_ASTRING = 24790;
constexpr unsigned int SSPROP_REPLACEMENTSTR06_ASTRING = 24791;
constexpr unsigned int SSPROP_PATROLREADRATE_U32 = 24800;   // patrol read rate
constexpr unsigned int SSPROP_BGIRATE_U32 = 24801;          // background initialisation rate
constexpr unsigned int SSPROP_CHECKCONSISTRATE_U32 = 24802; // consistency check rate
constexpr unsigned int SSPROP_ALARMSTATE_BOOL = 24806;      // alarm present, sent in the 4-byte binary format
constexpr unsigned int SSPROP_SASADDRESS_ASTRING = 24808;   // SAS address
constexpr unsigned int SSPROP_DEVICEID_U32 = 24809;         // the vendor's id of a disk or logical drive
constexpr unsigned int SSPROP_SLOTNUM_U32 = 24810;          // slot of a disk
constexpr unsigned int SSPROP_VDPRODUCTNAME_ASTRING = 24826; // product name of a virtual disk
constexpr unsigned int SSPROP_VDDISKCACHEPOLICY_U32 = 24860; // disk cache policy of a virtual disk
constexpr unsigned int SSPROP_MEDIA_U32 = 24888;             // media code
constexpr unsigned int SSPROP_PDCOUNT_U32 = 24936;           // number of physical disks
constexpr unsigned int SSPROP_POWERSTATUS_U32 = 24940;       // power status
constexpr unsigned int SSPROP_MODEL_ASTRING = 25004;         // model of a disk
constexpr unsigned int SSPROP_RRWE_U32 = 25093;              // RRWE code
constexpr unsigned int SSPROP_SECTORSIZE_U32 = 25101;        // sector size in bytes
constexpr unsigned int SSPROP_PORTCOUNT_U32 = 25112;         // number of ports

#endif
