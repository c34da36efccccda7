// C interface of the RAID chip maker's API library: its entry points and its records.
//
// The library is opened at run time under the name that the private INI gives. Its functions are cdecl, safe
// from several threads, and return a status (or a count) of which only the low byte counts: 0 is success.
// Adapter indexes run from 0. The records are a little-endian wire format, packed without gaps; bytes that
// bear no name here are opaque and stay as the library left them.
#ifndef ZARNEK_PLATFORM_MV_H
#define ZARNEK_PLATFORM_MV_H

#include <cstddef>
#include <cstdint>

// Statuses of the library that have a name.
constexpr unsigned int MV_ERR_NONE = 0;
constexpr unsigned int MV_ERR_FAIL = 1;
constexpr unsigned int MV_ERR_REQ_OUT_OF_RANGE = 5;
constexpr unsigned int MV_ERR_INVALID_ADAPTER_ID = 13;
constexpr unsigned int MV_ERR_RESCANING = 187;

// RequestType of _Info_Request.
constexpr std::uint8_t MV_REQUEST_LIST = 1;
constexpr std::uint8_t MV_REQUEST_ONE_DEVICE = 2;

// EventClass of _Event.
constexpr std::uint16_t MV_EVENT_CONTROLLER = 0;
constexpr std::uint16_t MV_EVENT_VIRTUAL_DISK = 1;
constexpr std::uint16_t MV_EVENT_PHYSICAL_DISK = 2;

// The most events that one MV_EVT_GetEvent is asked for.
constexpr unsigned int MV_MAX_EVENTS = 50;

// LinkFlags of _HD_Info.
constexpr std::uint8_t MV_LINK_SATA = 0x01;
constexpr std::uint8_t MV_LINK_SAS = 0x04;

// FeatureFlags of _HD_Info: the highest speed bit tells what the disk is capable of.
constexpr std::uint32_t MV_FEATURE_1_5G = 1U << 2;
constexpr std::uint32_t MV_FEATURE_3G = 1U << 3;
constexpr std::uint32_t MV_FEATURE_WRITE_CACHE = 1U << 4;
constexpr std::uint32_t MV_FEATURE_6G = 1U << 7;
constexpr std::uint32_t MV_FEATURE_ENCRYPTION = 1U << 8;
constexpr std::uint32_t MV_FEATURE_12G = 1U << 10;

// MediaFlags of _HD_Info.
constexpr std::uint8_t MV_MEDIA_SSD = 0x01;

// LinkSpeed of _HD_CONFIG; anything else tells no speed.
constexpr std::uint8_t MV_SPEED_1_5G = 1;
constexpr std::uint8_t MV_SPEED_3G = 2;
constexpr std::uint8_t MV_SPEED_6G = 3;
constexpr std::uint8_t MV_SPEED_12G = 4;

// RaidStatusFlags of _HD_RAID_Status_Request.
constexpr std::uint8_t MV_DISK_READY = 0x01;
constexpr std::uint8_t MV_DISK_IN_ARRAY = 0x02;
constexpr std::uint8_t MV_DISK_SPARE = 0x04;
constexpr std::uint8_t MV_DISK_BAD = 0x08;
constexpr std::uint8_t MV_DISK_CHECKING = 0x10;
constexpr std::uint8_t MV_DISK_FOREIGN = 0x20;

// RaidMode of _LD_Info.
constexpr std::uint8_t MV_RAID_0 = 0x00;
constexpr std::uint8_t MV_RAID_1 = 0x01;
constexpr std::uint8_t MV_RAID_5 = 0x05;
constexpr std::uint8_t MV_RAID_6 = 0x06;
constexpr std::uint8_t MV_RAID_NONE = 0x0F;
constexpr std::uint8_t MV_RAID_10 = 0x10;
constexpr std::uint8_t MV_RAID_50 = 0x50;
constexpr std::uint8_t MV_RAID_60 = 0x60;

// LDStatus of _LD_Info.
constexpr std::uint8_t MV_DRIVE_OPTIMAL = 0;
constexpr std::uint8_t MV_DRIVE_DEGRADED = 1;
constexpr std::uint8_t MV_DRIVE_MISSING = 2;
constexpr std::uint8_t MV_DRIVE_FAILED = 3;
constexpr std::uint8_t MV_DRIVE_OFFLINE = 4;
constexpr std::uint8_t MV_DRIVE_REBUILDING = 5;
constexpr std::uint8_t MV_DRIVE_CHECKING = 10;
constexpr std::uint8_t MV_DRIVE_INITIALISING = 15;
constexpr std::uint8_t MV_DRIVE_UNKNOWN = 255;

// CacheFlags of _LD_Info: any of the bits of MV_CACHE_IN_USE stands for a cache in use.
constexpr std::uint8_t MV_CACHE_NONE = 0x00;
constexpr std::uint8_t MV_CACHE_WRITE_BACK = 0x01;
constexpr std::uint8_t MV_CACHE_IN_USE = 0x0B;

#pragma pack(push, 1)

// Heads every list answer and every one-device answer; the entries follow it.
struct _Info_Request {
    std::uint8_t RequestVersion;
    std::uint8_t RequestType;
    std::uint16_t StartIndexOrId; // list: first index; one device: its HD_Id
    std::uint16_t NumRequested;
    std::uint16_t NumReturned; // written by the library
    std::uint8_t HeaderReserved[8];
};

struct _HD_Info {
    std::uint8_t opaque00[0x24];
    std::uint16_t HD_Id;
    std::uint8_t opaque26[0x0a];
    char SASAddress[8]; // not necessarily terminated
    std::uint8_t opaque38[0x0a];
    std::uint8_t LinkFlags;
    std::uint8_t opaque43[0x05];
    std::uint32_t FeatureFlags;
    char ModelText[40];   // not necessarily terminated
    char SerialText[20];  // not necessarily terminated
    char RevisionText[8]; // not necessarily terminated
    std::uint64_t SizeKB; // units of 1024 bytes
    std::uint8_t opaque98[0x0c];
    std::uint32_t BlockSize; // bytes
    std::uint8_t opaqueA8[0x10];
    std::uint8_t MediaFlags;
    std::uint8_t opaqueB9[0x3f];
};

struct _HD_CONFIG {
    std::uint8_t opaque00[0x03];
    std::uint8_t LinkSpeed;
    std::uint8_t opaque04[0x02];
    std::uint16_t SlotNumber;
};

struct _HD_RAID_Status_Request {
    _Info_Request Header;
    std::uint8_t opaque10[0x04];
    std::uint8_t RaidStatusFlags;
    std::uint8_t opaque15[0x03];
};

struct _HD_FreeSpaceInfo {
    std::uint8_t opaque00[0x08];
    std::uint64_t FreeSizeKB; // units of 1024 bytes
};

struct _HD_FreeSpaceInfo_Request {
    _Info_Request Header;
    _HD_FreeSpaceInfo Answer;
};

struct _LD_Info {
    std::uint16_t LD_Id;
    std::uint8_t LDStatus;
    std::uint8_t opaque03;
    std::uint16_t StripeSize;
    std::uint8_t RaidMode;
    std::uint8_t opaque07;
    std::uint8_t CacheFlags;
    std::uint8_t opaque09[0x0f];
    std::uint64_t SizeKB; // units of 1024 bytes
    char LDName[0x118];   // zero-terminated
};

struct _LD_Config {
    std::uint8_t opaque00[0x04];
    std::uint16_t LogicalDriveNumber;
    std::uint8_t opaque06[0x12];
};

struct _Adapter_Info {
    std::uint8_t opaque00[0x34];
    std::uint32_t SlotNumber;
    std::uint8_t opaque38[0x0e];
    std::uint16_t AdapterModel;
    std::uint8_t PortCount;
    std::uint8_t opaque49[0x11];
    std::uint8_t PDCount;
    std::uint8_t opaque5b[0x02];
    std::uint8_t VDCount;
    std::uint8_t opaque5e[0x0c];
    std::uint16_t MaxBufferSizeKB; // largest answer, units of 1024 bytes
    std::uint8_t opaque6c[0xc4];
};

struct _Adapter_Config_V2 {
    std::uint8_t AlarmFlag;
    std::uint8_t opaque01[0x07];
    std::uint8_t RebuildRate; // 0 to 255; 0 stands for the default
    std::uint8_t opaque09[0x37];
};

struct _Adapter_OEM_Data {
    std::uint16_t OemRecordSize; // written by the caller: the record's size
    std::uint8_t opaque02[0x0e];
    std::uint8_t OemSelector; // written by the caller: 0
    std::uint8_t opaque11[0x07];
    std::uint16_t RomMajor;
    std::uint16_t RomMinor;
    std::uint16_t RomRevision;
    std::uint16_t RomBuild;
    std::uint8_t opaque20[0x28];
};

struct _Event {
    std::uint16_t EventClass;
    std::uint16_t EventCode;
    std::uint8_t opaque04[0x04];
    std::uint16_t EventDeviceId;
    std::uint8_t opaque0a[0x02];
    std::uint32_t EventSequence;
    std::uint8_t opaque10[0x30];
};

#pragma pack(pop)

static_assert(sizeof(_Info_Request) == 16 && offsetof(_Info_Request, NumReturned) == 0x06);
static_assert(sizeof(_HD_Info) == 248 && offsetof(_HD_Info, HD_Id) == 0x24);
static_assert(offsetof(_HD_Info, SASAddress) == 0x30 && offsetof(_HD_Info, LinkFlags) == 0x42);
static_assert(offsetof(_HD_Info, FeatureFlags) == 0x48 && offsetof(_HD_Info, ModelText) == 0x4c);
static_assert(offsetof(_HD_Info, SerialText) == 0x74 && offsetof(_HD_Info, RevisionText) == 0x88);
static_assert(offsetof(_HD_Info, SizeKB) == 0x90 && offsetof(_HD_Info, BlockSize) == 0xa4);
static_assert(offsetof(_HD_Info, MediaFlags) == 0xb8);
static_assert(sizeof(_HD_CONFIG) == 8 && offsetof(_HD_CONFIG, LinkSpeed) == 0x03);
static_assert(offsetof(_HD_CONFIG, SlotNumber) == 0x06);
static_assert(sizeof(_HD_RAID_Status_Request) == 24);
static_assert(offsetof(_HD_RAID_Status_Request, RaidStatusFlags) == 0x14);
static_assert(sizeof(_HD_FreeSpaceInfo) == 16 && offsetof(_HD_FreeSpaceInfo, FreeSizeKB) == 0x08);
static_assert(sizeof(_HD_FreeSpaceInfo_Request) == 32 && offsetof(_HD_FreeSpaceInfo_Request, Answer) == 0x10);
static_assert(sizeof(_LD_Info) == 312 && offsetof(_LD_Info, LDStatus) == 0x02);
static_assert(offsetof(_LD_Info, StripeSize) == 0x04 && offsetof(_LD_Info, RaidMode) == 0x06);
static_assert(offsetof(_LD_Info, CacheFlags) == 0x08 && offsetof(_LD_Info, SizeKB) == 0x18);
static_assert(offsetof(_LD_Info, LDName) == 0x20);
static_assert(sizeof(_LD_Config) == 24 && offsetof(_LD_Config, LogicalDriveNumber) == 0x04);
static_assert(sizeof(_Adapter_Info) == 304 && offsetof(_Adapter_Info, SlotNumber) == 0x34);
static_assert(offsetof(_Adapter_Info, AdapterModel) == 0x46 && offsetof(_Adapter_Info, PortCount) == 0x48);
static_assert(offsetof(_Adapter_Info, PDCount) == 0x5a && offsetof(_Adapter_Info, VDCount) == 0x5d);
static_assert(offsetof(_Adapter_Info, MaxBufferSizeKB) == 0x6a);
static_assert(sizeof(_Adapter_Config_V2) == 64 && offsetof(_Adapter_Config_V2, RebuildRate) == 0x08);
static_assert(sizeof(_Adapter_OEM_Data) == 72 && offsetof(_Adapter_OEM_Data, OemSelector) == 0x10);
static_assert(offsetof(_Adapter_OEM_Data, RomMajor) == 0x18 && offsetof(_Adapter_OEM_Data, RomBuild) == 0x1e);
static_assert(sizeof(_Event) == 64 && offsetof(_Event, EventCode) == 0x02);
static_assert(offsetof(_Event, EventDeviceId) == 0x08 && offsetof(_Event, EventSequence) == 0x0c);

// The seventeen entry points, in the order in which they are bound: symbol, argument types. What a list call
// gets is an _Info_Request with room for its entries behind it. What `count` of the two adapter calls is for
// is not settled; a pointer to 0 is passed. Nobody calls MV_API_Version, MV_PD_GET_SMART_INFO and
// MV_PassThrough_ATA, and their arguments are not settled.
#define MV_API_LIST(ENTRY)                                                                                   \
    ENTRY(MV_API_Initialize, ())                                                                             \
    ENTRY(MV_API_Finalize, ())                                                                               \
    ENTRY(MV_API_Version, ())                                                                                \
    ENTRY(MV_Adapter_GetCount, ())                                                                           \
    ENTRY(MV_Adapter_GetInfo, (unsigned char adapter, unsigned int* count, _Adapter_Info* info))             \
    ENTRY(MV_Adapter_GetConfig, (unsigned char adapter, unsigned int* count, _Adapter_Config_V2* config))    \
    ENTRY(MV_PD_GetHDInfo_Ext, (unsigned char adapter, _Info_Request* request))                              \
    ENTRY(MV_PD_GetConfig, (unsigned char adapter, _Info_Request* request))                                  \
    ENTRY(MV_PD_GET_SMART_INFO, (unsigned char adapter, void* request))                                      \
    ENTRY(MV_PD_GetHDRaidStatus, (unsigned char adapter, _HD_RAID_Status_Request* request))                  \
    ENTRY(MV_PD_GetFreeSpaceInfo, (unsigned char adapter, _HD_FreeSpaceInfo_Request* request))               \
    ENTRY(MV_LD_GetInfo, (unsigned char adapter, _Info_Request* request))                                    \
    ENTRY(MV_LD_GetConfig, (unsigned char adapter, _Info_Request* request))                                  \
    ENTRY(MV_PassThrough_ATA, (unsigned char adapter, void* request))                                        \
    ENTRY(MV_Adapter_Get_OEM_Data, (unsigned char adapter, _Adapter_OEM_Data* data))                         \
    ENTRY(MV_EVT_GetEvent,                                                                                   \
          (unsigned char adapter, unsigned int maximum, unsigned int* count, _Event* events))                \
    ENTRY(MV_EVT_FlushEvent, (unsigned char adapter))

// A pointer type for each entry point: MV_API_Initialize_t and so on.
// NOLINTNEXTLINE(bugprone-macro-parentheses): the arguments are a list of parameters.
#define MV_POINTER_TYPE(symbol, arguments) using symbol##_t = unsigned int(*) arguments;
MV_API_LIST(MV_POINTER_TYPE)
#undef MV_POINTER_TYPE

#endif
