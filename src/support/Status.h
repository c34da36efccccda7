// Status values that operations return, and the mark for a number that nobody has told yet.
#ifndef ZARNEK_SUPPORT_STATUS_H
#define ZARNEK_SUPPORT_STATUS_H

namespace stg
{

constexpr int STATUS_SUCCESS = 0;
constexpr int STATUS_FAILURE = 1;    // a failure of the plug-in's own
constexpr int STATUS_NO_MATCH = 256; // a search in the data engine found nothing

// A number not yet known, in fields; all devices, in arguments.
constexpr unsigned int NUMBER_UNKNOWN = 0xFFFFFFFF;

} // namespace stg

#endif
