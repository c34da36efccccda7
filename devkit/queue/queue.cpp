// The stand-in for the data engine's queue library. The plug-in names that library among those it needs and
// calls nothing of it, so all it takes is a library to be found at load.

// Gives the library one symbol, for linkers that would drop a library without any.
extern "C" __attribute__((visibility("default"))) int pld_sm_queue_present()
{
    return 1;
}
