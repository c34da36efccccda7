#ifndef ZARNEK_MVLAYER_SCNTRLID_H
#define ZARNEK_MVLAYER_SCNTRLID_H

namespace stg
{

// One controller by both of its numbers.
struct SCntrlID_t {
    unsigned int m_GlobalCntrlNum; // the data engine's number, handed out by discovery
    unsigned int m_CntrlID;        // the vendor's adapter index, from 0
};

} // namespace stg

#endif
