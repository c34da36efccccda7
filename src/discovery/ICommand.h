#ifndef ZARNEK_DISCOVERY_ICOMMAND_H
#define ZARNEK_DISCOVERY_ICOMMAND_H

// A discovery that is decided in one place and run in another. Commands are neither stored nor queued: they
// live on the stack of the event thread for the span of one dispatch. The manager that they act on is
// borrowed.
class ICommand
{
  public:
    ICommand() = default;
    ICommand(const ICommand&) = delete;
    ICommand& operator=(const ICommand&) = delete;
    virtual ~ICommand();

    // Runs the command on the calling thread. Here it does nothing and gives 0.
    virtual unsigned int execute();
};

#endif
