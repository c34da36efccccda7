// What is allocated on this thread while one of these lives may leak: a vendor library that sees no
// controller stays loaded for good, and an object whose release fails stays too.
#ifndef ZARNEK_TESTS_LEAKSBYDESIGN_H
#define ZARNEK_TESTS_LEAKSBYDESIGN_H

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZARNEK_LEAK_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define ZARNEK_LEAK_SANITIZER
#endif

#ifdef ZARNEK_LEAK_SANITIZER
#include <sanitizer/lsan_interface.h>
#endif

class LeaksByDesign
{
  public:
#ifdef ZARNEK_LEAK_SANITIZER
    static constexpr bool WATCHED = true;
    LeaksByDesign()
    {
        __lsan_disable();
    }
    ~LeaksByDesign()
    {
        __lsan_enable();
    }
#else
    static constexpr bool WATCHED = false;
    LeaksByDesign() = default;
    ~LeaksByDesign() {} // not trivial, so that an unused one is no warning
#endif
    LeaksByDesign(const LeaksByDesign&) = delete;
    LeaksByDesign& operator=(const LeaksByDesign&) = delete;
};

#endif
