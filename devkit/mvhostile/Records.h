// The vendor's records as lists of fields: how one is filled so that it looks well, and how it is spoilt.
#ifndef ZARNEK_DEVKIT_MVHOSTILE_RECORDS_H
#define ZARNEK_DEVKIT_MVHOSTILE_RECORDS_H

#include "mvhostile/Dice.h"
#include "mvhostile/Faults.h"
#include "mvsim/model/EntryPoint.h"

#include <cstdint>

namespace mvhostile
{

struct Field {
    FieldKind kind;
    std::size_t offset;
    std::size_t size;
    std::uint32_t limit; // of a code: it is below that
};

struct Layout {
    const Field* begin;
    const Field* end;
    std::size_t head; // bytes of the request's header, which are no part of the answer
    std::size_t size; // with the head

    bool has(FieldKind kind) const;
};

constexpr std::size_t LARGEST_RECORD = sizeof(_LD_Info);

// Of what an entry point answers; without fields where that is no record.
const Layout& layoutOf(mvsim::EntryPoint entry);

// A whole record as an honest library would give it. `index` becomes the device's id.
void fill(const Layout& layout, Dice dice, std::uint32_t index, unsigned char* record);
// Does to the record what a fault of records and fields does.
void spoil(const Layout& layout, Fault fault, Dice& dice, unsigned char* record);

} // namespace mvhostile

#endif
