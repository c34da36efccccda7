// The type codes on which the SDO bridge switches. They differ from the type values that travel (sdo.h) for
// binary data and nexus.
#ifndef ZARNEK_SDO_SDOTYPECODE_H
#define ZARNEK_SDO_SDOTYPECODE_H

namespace stg
{

enum SDOTypeCode : unsigned char {
    SDO_CODE_BINARY = 0, // unsigned 32-bit
    SDO_CODE_BOOL = 1,   // 8-bit; no type name leads here
    SDO_CODE_S8 = 2,
    SDO_CODE_S16 = 3,
    SDO_CODE_S32 = 4,
    SDO_CODE_NEXUS = 5, // vector of unsigned 32-bit
    SDO_CODE_U8 = 6,
    SDO_CODE_U16 = 7,
    SDO_CODE_U32 = 8,
    SDO_CODE_U64 = 9,
    SDO_CODE_ASTRING = 10,   // text in a fixed block of 256 bytes
    SDO_CODE_SDOCONFIG = 13, // a nested SDO object
};

} // namespace stg

#endif
