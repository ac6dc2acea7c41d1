// A host's locale that would spoil numbers, if anything asked it.
#pragma once

namespace documents {

// Decimal commas and digits in groups of three, for streams; and a real locale of that kind for the C library, where the
// machine has one.
void installCommaLocale();

}  // namespace documents
