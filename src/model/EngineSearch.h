#ifndef ZARNEK_MODEL_ENGINESEARCH_H
#define ZARNEK_MODEL_ENGINESEARCH_H

namespace stg
{

class SDOProxy;

// The search for controllers, physical disks or virtual disks of this plug-in's layer in the data engine: one
// walk for the three, and what they do differently as fields. Texts and statuses are what their callers and
// the readers of the log know, differences included.
struct EngineSearch {
    const char* label;         // of the operation; begins its lines
    unsigned int objectType;   // what is listed
    const char* totalWords;    // ahead of the length of the list
    unsigned int keyProperty;  // tells the wanted object from others
    const char* layerWords;    // ahead of the number of a layer
    const char* allLostLabel;  // begins the line on a clone that fails when all are asked for
    bool tellsOwnLayer;        // each layer's number gets a line; one that is not ours a second one
    bool unreadableIsFailure;  // an object without a layer number makes the result 1 until another is taken
    bool failsByStatusOneOnly; // after any other status of the listing the count is used as it stands

    // Lists below `parent`, null for the top, and takes clones, which are the caller's, of what it looks for:
    // the first object with the key `wanted` to outObjects[0], or all of them to outObjects[i] by their place
    // in the list. 0; 256 when nothing matched; 1 for a clone that failed, or
    // where unreadableIsFailure says so; the status of a listing that counts as failed.
    unsigned int takeOne(SDOProxy& proxy, void* parent, unsigned int wanted, void** outObjects) const;
    unsigned int takeAll(SDOProxy& proxy, void* parent, void** outObjects) const;
    // The devices below the controller of this number: the one with the key, all of them for NUMBER_UNKNOWN.
    // A controller that the data engine does not have counts as a listing that fails with 1.
    unsigned int takeDevices(unsigned int globalCntrlNum, unsigned int wanted, void** outObjects) const;

  private:
    // Lists the objects and calls `take` for each of our layer, with its place, until it answers true.
    // `result` is the operation's own, which `take` may change.
    template <class Take>
    unsigned int walk(SDOProxy& proxy, void* parent, Take take) const;
};

} // namespace stg

#endif
