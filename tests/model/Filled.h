// A vendor class of the model with the records that it is filled from.
#ifndef ZARNEK_TESTS_FILLED_H
#define ZARNEK_TESTS_FILLED_H

#include "common/SdoObject.h"
#include "mvlayer/Binders.h"
#include "sdo/SDOProxy.h"

#include <algorithm>
#include <iterator>

template <class Model, class Binder>
struct Filled : Model {
    using Model::operator=;

    void fill() { *this = static_cast<void*>(&binder); }
    // What of the attributes that are set goes into the data engine.
    SdoValues sent()
    {
        stg::SDOProxy proxy;
        proxy.createSDOObject(*this);
        return valuesOf(proxy.getChildSDOConfigPtr());
    }

    stg::SInfoHelper_t helper;
    Binder binder;
};

// Puts a text into a record's field, which it may fill to its end.
template <std::size_t Width>
void put(char (&field)[Width], const std::string& text)
{
    std::copy_n(text.data(), std::min(text.size(), Width), std::begin(field));
}

#endif
