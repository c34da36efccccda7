// A parsed JSON document that can go without memory. The parser's own values take some as they go with
// something in them, and end the process where there is none; this one empties them first. Documents that are
// nested deeply do not get past the parser.
#ifndef ZARNEK_DEVKIT_MVSIM_DOCUMENT_H
#define ZARNEK_DEVKIT_MVSIM_DOCUMENT_H

#include "mvsim/scenario/FormatError.h"

namespace mvsim
{

struct Document {
    Json root;

    Document();
    explicit Document(Json&& parsed);
    Document(Document&&) = default;
    Document& operator=(Document&&) = default;
    ~Document();
};

} // namespace mvsim

#endif
