// The answers of the calls that tell of devices: an _Info_Request gets records behind its header.
#ifndef ZARNEK_DEVKIT_MVSIM_DEVICEANSWER_H
#define ZARNEK_DEVKIT_MVSIM_DEVICEANSWER_H

#include "mvsim/model/CallRules.h"
#include "mvsim/model/StorageModel.h"

namespace mvsim
{

// Writes what `request` asks `entry` for and its NumReturned, in the length that the rules demand. The
// status; other than MV_ERR_NONE, nothing is written.
unsigned int answerRequest(EntryPoint entry, const Adapter& adapter, const AnswerLength& length,
                           _Info_Request& request);

} // namespace mvsim

#endif
