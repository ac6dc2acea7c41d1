// Where in the text of a document something stands.
#pragma once

#include <schema/Runtime.h>

#include <istream>

namespace schema {

// Line and column as the XML parser counts them: from 1, from the XML declaration on, columns in UTF-16 units. Line 0 is
// an unknown place.
struct Place {
    unsigned long line = 0;
    unsigned long column = 0;
};

// Where the start tag of an element begins, in the document that was read from this position of the stream. The text is
// read again up to there without touching the stream's state, and the position is put back. The place is unknown when the
// stream can't be rewound, has other bytes by now, or anything else fails: the caller has a more important failure to tell.
Place placeOf(const DomElement& element, std::istream& stream, std::istream::pos_type begin);

}  // namespace schema
