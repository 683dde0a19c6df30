/* SPDX-License-Identifier: Apache-2.0 */
// Allocation failure on demand: while armed, the Nth allocation made
// through malloc, calloc, realloc or operator new fails (malloc answers
// NULL, operator new throws std::bad_alloc) and every other one succeeds.
// Xerces' default memory manager allocates with operator new, so its
// allocations are counted too. Under AddressSanitizer, whose malloc must
// stay its own, only operator new is counted.
#pragma once

#include <cstddef>

namespace zuxml_fault {

// Arms the failure of allocation number n (1 for the next one).
void FailAllocation(std::size_t n);
// Disarms; answers whether the armed allocation was reached and failed.
bool Disarm();

} // namespace zuxml_fault
