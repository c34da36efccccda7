// A parsed JSON document that can go without memory. The parser's own values take some as they go with
// something in them, and end the process where there is none; this one empties them first. Documents that are
// nested deeply do not get past the parser.
#ifndef ZARNEK_DEVKIT_MVSIM_DOCUMENT_H
#define ZARNEK_DEVKIT_MVSIM_DOCUMENT_H

#include "mvsim/scenario/FormatError.h"

#include <utility>

namespace mvsim
{

struct Document {
    Json root;

    Document() = default;
    explicit Document(Json&& parsed) : root(std::move(parsed)) {}
    Document(Document&&) = default;
    Document& operator=(Document&&) = default;
    ~Document() { empty(root); }

  private:
    static void empty(Json& value)
    {
        if (!value.is_structured())
            return;
        for (Json& element : value)
            empty(element);
        value.clear();
    }
};

} // namespace mvsim

#endif
