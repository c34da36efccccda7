#include "zarnekctl/host/LastWords.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

namespace zarnekctl
{

namespace
{

[[noreturn]] void explainEnd()
{
    std::string reason = "no exception";
    if (const std::exception_ptr current = std::current_exception()) {
        try {
            std::rethrow_exception(current);
        } catch (const std::exception& exception) {
            reason = exception.what();
        } catch (...) {
            reason = "an exception of an unknown kind";
        }
    }
    std::cerr << "zarnekctl: an exception ended the process: " << reason
              << "; `zarnekctl check` tells whether the mapping file is the cause\n";
    std::abort();
}

} // namespace

void prepareLastWords()
{
    std::set_terminate(explainEnd);
}

} // namespace zarnekctl
