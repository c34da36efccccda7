// What may come of a failure in the plug-in, beyond the statuses of its commands.
#ifndef ZARNEK_TESTS_DESIGN_H
#define ZARNEK_TESTS_DESIGN_H

#include <zarnek.h>

#include <string>

enum class What { Throws, Crashes, Terminates, Loses };

// By design; what stands not here is a fault.
struct Rule {
    What what;
    unsigned int command; // under way
    const char* function; // in the call chain of the allocation that failed, or of the one that is lost
    const char* why;
};
constexpr unsigned int ANY = 0;
inline const Rule BY_DESIGN[] = {
    {What::Throws, ZARNEK_CMD_INITIALIZE, "CLibraryManager::initializeLibrary()",
     "the vendor list cannot be read"},
    {What::Throws, ZARNEK_CMD_DISCOVER, "ISubSystemManager::discover()", "what is found cannot be told"},
    {What::Crashes, ZARNEK_CMD_INITIALIZE, "uniqueInstance<CCommandHandler,",
     "there is no handler to take the command"},
    {What::Terminates, ZARNEK_CMD_START_MONITORING, "IEventManager::thread_call_back(void*)",
     "nobody catches on the event thread"},
    {What::Loses, ANY, "CLibraryLoader::createAllLibObjs()", "of a library that sees no controller"},
    {What::Loses, ANY, "CMarvelEventManager::createEventSubject(IEvtSubject*&)",
     "of a subject without observer or thread"},
    {What::Loses, ANY, "CSubSystemFactory::createSubSystemMgrObj(", "of a manager that got into no list"},
};

inline const char* designOf(What what, unsigned int command, const std::string& chain)
{
    for (const Rule& rule : BY_DESIGN) {
        if (rule.what == what && (rule.command == ANY || rule.command == command) &&
            chain.find(rule.function) != std::string::npos)
            return rule.why;
    }
    return nullptr;
}

#endif
