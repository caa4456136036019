#pragma once

/// Included first in each source file that scripts/mutation has changed.
namespace mutation {

/// Number in MEIBO_MUTANT; 0 if there is none.
extern int active;
/// One byte for each number, in the file that MEIBO_MUTATION_REACHED names; nullptr without one.
extern unsigned char* reached;
extern int reachedSize;

/// Whether the change `number` applies in this run.
inline bool Mutated(int number) {
    if (__builtin_expect(reached != nullptr, 0) && number < reachedSize) reached[number] = 1;
    return active == number;
}

}  // namespace mutation
