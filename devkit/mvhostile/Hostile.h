// The library behind its C borders: a small system whose answers are struck by faults.
#ifndef ZARNEK_DEVKIT_MVHOSTILE_HOSTILE_H
#define ZARNEK_DEVKIT_MVHOSTILE_HOSTILE_H

#include "common/SinkSlot.h"
#include "mvhostile/Records.h"
#include "mvhostile/mvhostile_control.h"

#include <mv.h>

#include <bitset>
#include <mutex>
#include <optional>
#include <string>

namespace mvhostile
{

class Hostile
{
  public:
    static Hostile& instance();

    // Begins anew with all faults, or with one alone. False for an unknown name.
    bool start(std::uint32_t seed, const char* fault);
    unsigned int answers();
    unsigned int entries();
    unsigned int strikes(std::size_t fault);

    // The calls, by the shape of their answers. What they return is the entry point's result.
    unsigned int status(mvsim::EntryPoint entry);
    unsigned int status(mvsim::EntryPoint entry, unsigned int adapter);
    unsigned int adapterCount();
    // `word` may be null.
    unsigned int record(mvsim::EntryPoint entry, unsigned int adapter, void* record, unsigned int* word);
    unsigned int devices(mvsim::EntryPoint entry, unsigned int adapter, _Info_Request* request);
    unsigned int events(unsigned int adapter, unsigned int maximum, unsigned int* count, _Event* events);

    devkit::SinkSlot<devkit_text_sink> callSink;

  private:
    using FaultSet = std::bitset<FAULT_COUNT>;

    Hostile();
    // One answer: draws the faults that may strike it, and lets `act()` write it.
    template <class Act>
    unsigned int answer(mvsim::EntryPoint entry, std::optional<unsigned int> adapter, Shape shape, Act act);
    void draw(Shape shape, const Layout& layout);
    // Whether a fault was drawn, which it then does; called where it can be done.
    bool strikes(Fault fault);
    std::string line(mvsim::EntryPoint entry, std::optional<unsigned int> adapter, unsigned int result) const;
    unsigned int anyFailure() { return 1 + m_dice.below(0xff); }

    std::uint32_t deviceCount(mvsim::EntryPoint list, unsigned int adapter);
    void writeRecord(mvsim::EntryPoint entry, unsigned int adapter, std::uint32_t index,
                     unsigned char* target, bool half = false);
    void copySpoilt(const Layout& layout, unsigned char* record, unsigned char* target, bool half);
    unsigned int list(mvsim::EntryPoint entry, unsigned int adapter, _Info_Request& request);
    void overwriteHeader(_Info_Request& request);

    std::mutex m_mutex;
    bool m_usable = false; // started; else the environment could not be read, and there is no adapter
    std::uint32_t m_seed = 0;
    std::optional<Fault> m_only;
    std::uint32_t m_chances = 0; // one in so many answers has a fault
    std::uint32_t m_adapters = 0;
    unsigned int m_answers = 0;
    unsigned int m_entries = 0;
    std::uint32_t m_sequence = 0;
    unsigned int m_strikes[FAULT_COUNT] = {};

    // Of the answer under way.
    Dice m_dice{0, 0};
    FaultSet m_drawn;
    FaultSet m_struck;
};

} // namespace mvhostile

#endif
