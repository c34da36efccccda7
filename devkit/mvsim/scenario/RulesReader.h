// Reads the "fail" and "answers" members of a scenario. Throws FormatError.
#ifndef ZARNEK_DEVKIT_MVSIM_RULESREADER_H
#define ZARNEK_DEVKIT_MVSIM_RULESREADER_H

#include "mvsim/model/CallRules.h"
#include "mvsim/scenario/StrictObject.h"

namespace mvsim
{

// `libraryWide`: the rules are for the calls that concern no single adapter, otherwise for the others.
CallRules readRules(StrictObject& object, bool libraryWide);

} // namespace mvsim

#endif
