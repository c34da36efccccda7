#include "system/CallChain.h"

#include "common/TempFolder.h"

#include <link.h>
#include <unwind.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace
{

// Passed over in a chain are all others: the C and the C++ library.
struct Library {
    const char* name; // a part of its file's name; the program has none
    Caller kind;
    std::uintptr_t base, end;
};
Library g_libraries[] = {
    {"libpld_sm_zarnek.so", Caller::Plugin, 0, 0}, {"", Caller::Program, 0, 0},
    {"libmorlan.so", Caller::StandIn, 0, 0},       {"libpld_sm_ral.so", Caller::StandIn, 0, 0},
    {"libmvsim.so", Caller::StandIn, 0, 0},        {"ld-linux", Caller::Loader, 0, 0},
};

int noteLibrary(dl_phdr_info* info, std::size_t /*size*/, void* /*data*/)
{
    for (Library& library : g_libraries) {
        if (*library.name == '\0' ? *info->dlpi_name != '\0'
                                  : std::strstr(info->dlpi_name, library.name) == nullptr)
            continue;
        library.base = info->dlpi_addr;
        for (int i = 0; i < info->dlpi_phnum; ++i) {
            if (info->dlpi_phdr[i].p_type == PT_LOAD)
                library.end = info->dlpi_addr + info->dlpi_phdr[i].p_vaddr + info->dlpi_phdr[i].p_memsz;
        }
    }
    return 0;
}

struct Walk {
    std::uint32_t depth;
    Caller caller;
    CallChain chain{};
    bool callerFound = false;
    bool leftProgram = false; // the frames of the hook itself lie in the program
};

_Unwind_Reason_Code noteFrame(_Unwind_Context* context, void* argument)
{
    Walk& walk = *static_cast<Walk*>(argument);
    const std::uintptr_t address = _Unwind_GetIP(context) - 1;
    const Library* library = nullptr;
    for (const Library& candidate : g_libraries)
        library = address >= candidate.base && address < candidate.end ? &candidate : library;
    const bool inProgram = library != nullptr && library->kind == Caller::Program;
    walk.leftProgram |= !inProgram;
    if (library == nullptr || !walk.leftProgram)
        return _URC_NO_REASON;
    if (!walk.callerFound && library->kind != walk.caller)
        return _URC_END_OF_STACK;
    walk.callerFound = true;
    if (library->kind == Caller::Plugin)
        walk.chain.offsets[walk.chain.size++] = static_cast<std::uint32_t>(address - library->base);
    return walk.chain.size < walk.depth ? _URC_NO_REASON : _URC_END_OF_STACK;
}

// Functions that are inlined from its headers, too.
bool isOfCxxLibrary(const std::string& line)
{
    const std::string inlined = " (inlined by) ";
    const std::size_t name = line.compare(0, inlined.size(), inlined) == 0 ? inlined.size() : 0;
    return line.substr(name, line.find('(', name) - name).find("std::") != std::string::npos;
}

} // namespace

void CallChain::findLibraries()
{
    for (Library& library : g_libraries)
        library.base = library.end = 0;
    dl_iterate_phdr(noteLibrary, nullptr);
}

CallChain CallChain::here(std::uint32_t depth, Caller caller)
{
    Walk walk{depth, caller};
    _Unwind_Backtrace(noteFrame, &walk);
    return walk.chain;
}

void FunctionNames::want(const CallChain& chain)
{
    for (std::uint32_t i = 0; i < chain.size; ++i)
        m_names[chain.offsets[i]];
}

void FunctionNames::find()
{
    const TempFolder folder;
    {
        std::ofstream list(folder.path("offsets"));
        list << std::hex;
        for (const auto& [offset, name] : m_names)
            list << "0x" << offset << '\n';
    }
    // Prints an address, and then the functions that it stands in.
    const std::string command = ZARNEK_ADDR2LINE " -aCfips -e " ZARNEK_PLUGIN " @" + folder.path("offsets") +
                                " >" + folder.path("names");
    if (m_names.empty() || std::system(command.c_str()) != 0)
        return;
    std::ifstream names(folder.path("names"));
    std::string* current = nullptr;
    for (std::string line; std::getline(names, line);) {
        if (line.compare(0, 2, "0x") == 0) {
            current = &m_names[static_cast<std::uint32_t>(std::stoul(line, nullptr, 16))];
            line.erase(0, line.find(' ') + 1);
        }
        if (current != nullptr && !isOfCxxLibrary(line))
            *current += "    " + line + '\n';
    }
}

std::string FunctionNames::text(const CallChain& chain) const
{
    std::string functions;
    for (std::uint32_t i = 0; i < chain.size; ++i)
        functions += m_names.at(chain.offsets[i]);
    return functions;
}
