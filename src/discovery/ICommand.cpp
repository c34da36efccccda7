#include "discovery/ICommand.h"

ICommand::~ICommand() = default;

unsigned int ICommand::execute()
{
    return 0;
}
