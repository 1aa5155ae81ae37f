// Operators new and delete of the program's own, which take back nothing but what they have given.
#ifndef PROGRAMS_OWN_OPERATORS_H
#define PROGRAMS_OWN_OPERATORS_H

namespace ownoperators {

// How many allocations were given out and not taken back yet.
long living();

} // namespace ownoperators

#endif
