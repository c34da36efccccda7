// Who called whom, as far as the frames lie in the plug-in.
#ifndef ZARNEK_TESTS_CALLCHAIN_H
#define ZARNEK_TESTS_CALLCHAIN_H

#include <array>
#include <cstdint>
#include <map>
#include <string>

enum class Caller { Plugin, StandIn, Program, Loader };

// Plain data, so that it can be handed from one process to another. The innermost call comes first.
struct CallChain {
    static constexpr std::uint32_t WHOLE = 64;

    // The innermost `depth` calls up to here; empty where it was not `caller` that called into the library at
    // the top of the chain, or not for the plug-in. May run in place of malloc.
    static CallChain here(std::uint32_t depth, Caller caller);
    // Looks where the libraries are loaded now. Called after each load of the plug-in.
    static void findLibraries();

    std::array<std::uint32_t, WHOLE> offsets; // into the plug-in
    std::uint32_t size;
};

// The functions of call chains, by debug information.
class FunctionNames
{
  public:
    void want(const CallChain& chain);
    // Finds all that was wanted.
    void find();
    // One line for each function, inlined ones too, with file and line.
    std::string text(const CallChain& chain) const;

  private:
    std::map<std::uint32_t, std::string> m_names;
};

#endif
