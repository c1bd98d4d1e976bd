#ifndef ZRBASE_CLUSTERING_INTERNAL_KCLANES_H
#define ZRBASE_CLUSTERING_INTERNAL_KCLANES_H

/// @file
/// Two doubles that are worked on side by side, one for each of two candidates. Each lane goes
/// through the operations of the plain code in their order, so it holds the same bits.

using KCpair = double __attribute__((vector_size(16), may_alias));
using KCpairMask = decltype(KCpair{} < KCpair{});

inline KCpair kcPair(double first, double second) { return KCpair{first, second}; }

/// Lane by lane `yes` where the mask holds, else `no`.
inline KCpair kcSelect(KCpairMask mask, KCpair yes, KCpair no) {
  return reinterpret_cast<KCpair>((mask & reinterpret_cast<KCpairMask>(yes)) |
                                  (~mask & reinterpret_cast<KCpairMask>(no)));
}

/// `second` where the condition holds, else `first`, without a branch: the nearer of two candidates
/// is anyone's guess.
inline int kcPick(bool isSecond, int first, int second) {
  return first ^ ((first ^ second) & -static_cast<int>(isSecond));
}

#endif  // ZRBASE_CLUSTERING_INTERNAL_KCLANES_H
