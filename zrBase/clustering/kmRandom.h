#ifndef ZRBASE_CLUSTERING_KMRANDOM_H
#define ZRBASE_CLUSTERING_KMRANDOM_H

#include <zrBase/export.h>

/// @file
/// The random numbers of the clustering code: one generator for the whole process.
///
/// It shuffles the standard library's rand() through a table of 97 entries, and calls srand(0) when
/// first used. Nothing sets another seed, so every process draws the same sequence, and a search
/// gives the same result on every run. It is not safe to draw on two threads at once, and a rand()
/// or srand() called elsewhere after the first draw changes what follows.

/// Next random number of the process, from 0 to 1, both of them possible.
///
/// It is a multiple of 1 / 32767: each value of rand() is taken modulo 32768.
ZRBASE_EXPORT double kmRan0();

/// Next random int from 0 to n - 1, by one draw of kmRan0(): trunc(kmRan0() n).
///
/// A draw of exactly 1.0 gives n - 1. The result is always 0 for n = 1, and always -1 for n = 0.
ZRBASE_EXPORT int kmRanInt(int n);

/// Next random number from lo to hi, both possible, by one draw of kmRan0().
/// @param hi  may lie below `lo`
ZRBASE_EXPORT double kmRanUnif(double lo, double hi);

#endif  // ZRBASE_CLUSTERING_KMRANDOM_H
